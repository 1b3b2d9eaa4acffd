// HTTP requests to a web service, whose answers are kept in memory.
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "files/Registry.h"
#include "net/UrlTransfer.h"

namespace feedloom {

// Receives a transfer's progress for diagnosis, one ASCII line an event, on the requesting thread.
using StatusLog = std::function<void(std::string_view line)>;

// Returns the line for `event`; `name` is the host whose name is or was resolved.
std::string HttpStatusLine(TransferEvent event, std::string_view name);

// Sends requests one after the other, on the calling thread. An object belongs to one thread. The
// constructor reads the user's proxy and name of the reader from `registry`.
class HttpClient {
 public:
  explicit HttpClient(const Registry& registry, StatusLog log = {});

  // Get and Post return the answer's body byte for byte, or an empty text after a failure, after
  // `stop`, and for any status but 200. `address` is "host/path" or "host:port/path" with or
  // without "http://" or "https://" before it. Its query, which begins behind the first "?", is
  // sent byte for byte, even blanks, "#" and bytes above 0x7F. An address with a control character
  // fails. `formData` must be encoded as application/x-www-form-urlencoded.
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
