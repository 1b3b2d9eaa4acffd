// One transfer of an address's content over http, https or from a local file.
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "platform/ProxySettings.h"

namespace feedloom {

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

struct TransferRequest {
  std::string address;
  // Set: stands behind the address, which has no query then, and, unless it is empty, a "?". It is
  // sent byte for byte:
  // no blank, "#" or byte above 0x7F is encoded; but next to a "#", an escape's "%AB" becomes
  // "%ab". A control character in one of the two makes the transfer fail.
  std::optional<std::string> rawQuery;
  std::optional<std::string> form;  // set: a POST of this application/x-www-form-urlencoded text
  bool allowFile = false;           // whether file: addresses may be read
  ProxySettings proxy;
  // Takes the content as it arrives, decompressed; false ends the transfer as failed.
  std::function<bool(std::string_view bytes)> sink;
  // Progress, for diagnosis; may be empty. Both functions run on the calling thread.
  std::function<void(TransferEvent event, std::string_view detail)> onEvent;
};

struct TransferResult {
  bool ok = false;
  long status = 0;    // the HTTP status of the last answer; 0 without one
  std::string error;  // English, ASCII; empty when ok
  // Where the content came from: the address that was asked for, or the one that the last redirect
  // led to. Empty unless ok.
  std::string address = {};
};

// Runs the transfer on the calling thread and returns when it is over. It fails on a status of 400
// or more, after ten redirects, on a redirect to anything but http and https, on content of more
// than 64 MiB, and within 100 ms of `stop`. Any thread may call it.
TransferResult RunTransfer(const TransferRequest& request, std::stop_token stop);

}  // namespace feedloom
