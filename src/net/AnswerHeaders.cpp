#include "net/AnswerHeaders.h"

#include <algorithm>
#include <ctime>
#include <string>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::size_t kLongestValidator = 1024;  // no server needs more

std::string Header(CURL* easy, const char* name) {
  curl_header* header = nullptr;
  const bool isThere = curl_easy_header(easy, name, 0, CURLH_HEADER, -1, &header) == CURLHE_OK;
  return isThere ? header->value : "";
}

std::string Validator(CURL* easy, const char* name) {
  std::string value = Header(easy, name);
  return value.size() > kLongestValidator || HasControls(value) ? "" : value;
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringAsciiCase(text.substr(0, start.size()), start);
}

}  // namespace

Validators AnswerValidators(CURL* easy) {
  return {Validator(easy, "ETag"), Validator(easy, "Last-Modified")};
}

// Retry-After is a number of seconds or a date (RFC 9110). The library's own value is not used:
// it is limited to six hours.
std::chrono::seconds AnswerRetryAfter(CURL* easy) {
  const std::string value = Header(easy, "Retry-After");
  if (const int seconds = ParseInt(value); seconds > 0) return std::chrono::seconds(seconds);
  const std::time_t date = curl_getdate(value.c_str(), nullptr);
  return std::chrono::seconds(date < 0 ? 0 : date - std::time(nullptr));
}

std::chrono::seconds AnswerMaxAge(CURL* easy) {
  constexpr std::string_view kMaxAge = "max-age=";
  const std::string value = Header(easy, "Cache-Control");
  std::string_view rest = value;
  while (!rest.empty()) {
    const auto end = std::min(rest.find(','), rest.size());
    const std::string_view directive = Trim(rest.substr(0, end));
    if (StartsWithIgnoringCase(directive, kMaxAge)) {
      return std::chrono::seconds(std::max(0, ParseInt(directive.substr(kMaxAge.size()))));
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return {};
}

void RedirectWatch::TakeLine(std::string_view header) {
  if (header.starts_with("HTTP/")) status_ = ParseInt(header.substr(header.find(' ') + 1));
  if (status_ / 100 != 3 || !StartsWithIgnoringCase(header, "Location:")) return;
  hasRedirect_ = true;
  if (status_ != 301 && status_ != 308) hasOther_ = true;
}

}  // namespace feedloom
