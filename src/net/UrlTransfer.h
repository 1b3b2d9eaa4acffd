// Fetches the content of a URL over http or https, or from a local file.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "net/HostLogin.h"
#include "net/TransferFailure.h"
#include "net/WebAccess.h"

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

// The validators by which an HTTP server identifies a version of a document (RFC 9110): the values
// of the headers ETag and Last-Modified. Empty when the server sent none.
struct Validators {
  std::string etag = {};
  std::string lastModified = {};

  bool operator==(const Validators&) const = default;
  bool AreEmpty() const { return etag.empty() && lastModified.empty(); }
};

struct TransferRequest {
  std::string address = {};
  // A query that is sent byte for byte: blanks, "#" and bytes above 0x7F are not encoded. When set,
  // `address` must have no query; it gets "?" and `rawQuery`, or nothing if `rawQuery` is empty. In
  // a query with "#", the hexadecimal digits of escapes become lower case. A control character in
  // `address` or `rawQuery` makes the transfer fail.
  std::optional<std::string> rawQuery = {};
  // The body of a POST, application/x-www-form-urlencoded. When not set, the request is a GET.
  std::optional<std::string> form = {};
  bool allowFile = false;  // whether a file: address may be read
  Validators known = {};   // the version that the caller has; the answer may then be status 304
  WebAccess web = {};
  std::optional<GivenLogin> login = {};  // for its server, in place of the one that is kept
  TransferPool* pool = nullptr;  // not owned; without one, the transfer opens its own connection
  // Receives the decompressed content, piece by piece, on the calling thread. Returning false ends
  // the transfer as failed.
  std::function<bool(std::string_view bytes)> sink = {};
  // Receives the progress, for diagnosis, on the calling thread. May be empty.
  std::function<void(TransferEvent event, std::string_view detail)> onEvent = {};
};

struct TransferResult {
  bool ok = false;
  long status = 0;         // the HTTP status of the last answer; 0 without an answer
  std::string error = {};  // English, ASCII; empty when ok
  TransferFailure failure = TransferFailure::Other;  // None exactly when ok
  Validators validators = {};                        // of the content; empty unless ok
  std::chrono::seconds retryAfter{0};  // from now on, by the header Retry-After; 0 without it
  // The URL of the last answer, without a login: the request's address, or the target of the last
  // redirect. Empty when no server has answered.
  std::string address = {};
  // The server of `address` has answered 401: it wants a name and a password, by a way that is
  // supported (Basic or Digest, RFC 7617 and 7616), or refuses those that it was given.
  bool wantsLogin = false;
  // `address`, when redirects led there and all of them were permanent (status 301 and 308, RFC
  // 9110); else, and after a failure, empty.
  std::string movedTo = {};
  std::chrono::seconds maxAge{0};  // of the header Cache-Control (RFC 9111); 0 without it
};

// Runs the transfer on the calling thread and returns when it has ended. It fails on a status of
// 400 or more, on an eleventh redirect, on a redirect to a scheme other than http and https, on
// content longer than 64 MiB, and within 100 ms after `stop` is requested. Any thread may call it.
//
// A name and a password are sent only to a server that asks for them and whose login is given or
// kept, and only to that one: not along a redirect to another scheme, host or port. When a redirect
// leads to a server that asks, it is asked again with its own login. A login in the address itself
// is sent with the first request, unless there is one that is given or kept.
//
// A cookie that a server sets lives until the transfer ends.
[[nodiscard]] TransferResult RunTransfer(const TransferRequest& request, std::stop_token stop);

}  // namespace feedloom
