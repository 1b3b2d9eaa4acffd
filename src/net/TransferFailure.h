// Why a transfer has failed: a plain value.
#pragma once

namespace feedloom {

enum class TransferFailure {
  None,
  Stopped,
  BadAddress,    // no URL, or of a scheme that is not supported
  NoSuchHost,    // the name of the server, or of the proxy, is not known
  NotConnected,  // refused, or no way to the server
  Tls,
  TimedOut,  // the system has given the connection up
  TooLarge,
  HttpStatus,   // 400 or more
  LoginWanted,  // TransferResult::wantsLogin
  Other,
};

// Returns the kind of failure that the transfer library tells by `code`, a CURLcode. `hasAnswered`:
// a server has answered, so the request's own address was a good one. Pure; any thread.
TransferFailure FailureOf(int code, bool hasAnswered);

}  // namespace feedloom
