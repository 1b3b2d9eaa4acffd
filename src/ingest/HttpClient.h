// Short exchanges of text with a web service.
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/Registry.h"
#include "platform/UrlTransfer.h"

namespace feedloom {

// Takes one line of progress for diagnosis; ASCII.
using StatusLog = std::function<void(std::string_view line)>;

// The line for a progress event; `name` is the host that it is about.
std::string HttpStatusLine(TransferEvent event, std::string_view name);

// One object an exchange, used by one thread. Reads how the user reaches the web when it is
// made.
class HttpClient {
 public:
  explicit HttpClient(const Registry& registry, StatusLog log = {});

  // The answer's body, byte for byte; empty on any failure, on `stop`, and for any status but 200.
  // `address` is "host/path" or "host:port/path", with "http://" or "https://" in front or nothing.
  // What stands behind its first "?" is sent as it is, blanks, "#" and the code page's bytes
  // included; an address with control characters fails.
  // The form data of a POST is URL-encoded already.
  std::string Get(const std::string& address, std::stop_token stop = {});
  std::string Post(const std::string& address, const std::string& formData,
                   std::stop_token stop = {});

 private:
  std::string Exchange(const std::string& address, std::optional<std::string> form,
                       std::stop_token stop);

  const WebAccess web_;
  const StatusLog log_;
};

}  // namespace feedloom
