// One transfer of an address's content over http, https or from a local file.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/WebAccess.h"

namespace feedloom {

class TransferPool;

enum class TransferEvent {
  Created,
  ResolvingName,  // detail: the host
  NameResolved,   // detail: the host
  Connecting,
  Connected,
  SendingRequest,
  RequestSent,
  ResponseReceived,
  Redirecting,
  ClosingConnection,
  ConnectionClosed,
  Complete,
};

// What an HTTP server calls a version of a document (RFC 9110); empty: it does not.
struct Validators {
  std::string etag = {};
  std::string lastModified = {};

  bool operator==(const Validators&) const = default;
  bool AreEmpty() const { return etag.empty() && lastModified.empty(); }
};

struct TransferRequest {
  std::string address = {};
  // Set: stands behind the address, which has no query then, and, unless it is empty, a "?". It is
  // sent byte for byte:
  // no blank, "#" or byte above 0x7F is encoded; but next to a "#", an escape's "%AB" becomes
  // "%ab". A control character in one of the two makes the transfer fail.
  std::optional<std::string> rawQuery = {};
  std::optional<std::string> form = {};  // set: a POST of this x-www-form-urlencoded text
  bool allowFile = false;                // whether file: addresses may be read
  Validators known = {};                 // the version that is here: the answer may be status 304
  WebAccess web = {};
  TransferPool* pool = nullptr;  // whose connections are used; none: one of its own
  // Takes the content as it arrives, decompressed; false ends the transfer as failed.
  std::function<bool(std::string_view bytes)> sink = {};
  // Progress, for diagnosis; may be empty. Both functions run on the calling thread.
  std::function<void(TransferEvent event, std::string_view detail)> onEvent = {};
};

struct TransferResult {
  bool ok = false;
  long status = 0;                     // the HTTP status of the last answer; 0 without one
  std::string error;                   // English, ASCII; empty when ok
  Validators validators = {};          // of the content; empty unless ok
  std::chrono::seconds retryAfter{0};  // the server's wish, of any failure; 0 without one
  // Where the content came from: the address that was asked for, or the one that the last redirect
  // led to. Empty unless ok.
  std::string address = {};
};

// Runs the transfer on the calling thread and returns when it is over. It fails on a status of 400
// or more, after ten redirects, on a redirect to anything but http and https, on content of more
// than 64 MiB, and within 100 ms of `stop`. Any thread may call it.
TransferResult RunTransfer(const TransferRequest& request, std::stop_token stop);

}  // namespace feedloom
