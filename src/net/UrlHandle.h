// Owners of the transfer library's handles. Only sources of this folder include this file.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>

namespace feedloom {

// A parsed address.
struct CleanUpUrl {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using UrlHandle = std::unique_ptr<CURLU, CleanUpUrl>;

// Returns one part of `url`; empty when it has none.
std::string UrlPart(const UrlHandle& url, CURLUPart part, unsigned flags = 0);

struct CleanUpEasy {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct CleanUpMulti {
  void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};

// The handles that one transfer uses at a time. `multi` owns the connections; they stay open after
// the transfer.
struct TransferHandles {
  std::unique_ptr<CURLM, CleanUpMulti> multi{curl_multi_init()};
  std::unique_ptr<CURL, CleanUpEasy> easy{curl_easy_init()};
  std::string origin;  // scheme, host and port of the last transfer's address
};

}  // namespace feedloom
