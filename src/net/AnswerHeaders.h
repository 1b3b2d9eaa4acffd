// What the headers of a server's answers say. Only sources of this folder include this file.
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <string_view>

#include "net/UrlTransfer.h"

namespace feedloom {

// Of the last answer on `easy`; empty, or 0, when a header is missing or cannot be used.
Validators AnswerValidators(CURL* easy);
std::chrono::seconds AnswerRetryAfter(CURL* easy);
std::chrono::seconds AnswerMaxAge(CURL* easy);  // of Cache-Control (RFC 9111)

// Watches the header lines of all answers of one transfer for redirects.
class RedirectWatch {
 public:
  void TakeLine(std::string_view header);
  // Whether there were redirects, and all of them permanent (status 301 and 308, RFC 9110).
  bool AllPermanent() const { return hasRedirect_ && !hasOther_; }

 private:
  int status_ = 0;
  bool hasRedirect_ = false;
  bool hasOther_ = false;
};

}  // namespace feedloom
