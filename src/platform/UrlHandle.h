// What the transfer library hands out, and who gives it back. For the sources of this folder that
// include that library.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>

namespace feedloom {

// An address taken apart.
struct CleanUpUrl {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using UrlHandle = std::unique_ptr<CURLU, CleanUpUrl>;

struct CleanUpEasy {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct CleanUpMulti {
  void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};

// What one transfer works with. The connections belong to `multi` and outlive the transfer.
struct TransferHandles {
  std::unique_ptr<CURLM, CleanUpMulti> multi{curl_multi_init()};
  std::unique_ptr<CURL, CleanUpEasy> easy{curl_easy_init()};
  std::string origin;  // of the last transfer's address
};

}  // namespace feedloom
