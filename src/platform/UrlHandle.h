// An address as the transfer library takes it apart. For the sources of this folder that include
// that library.
#pragma once

#include <curl/curl.h>

#include <memory>

namespace feedloom {

struct CleanUpUrl {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using UrlHandle = std::unique_ptr<CURLU, CleanUpUrl>;

}  // namespace feedloom
