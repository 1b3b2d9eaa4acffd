#include "net/TransferFailure.h"

#include <curl/curl.h>

#include <algorithm>
#include <iterator>

namespace feedloom {
namespace {

struct Row {
  CURLcode code;
  TransferFailure failure;
};
constexpr Row kRows[] = {
    {CURLE_OK, TransferFailure::None},
    {CURLE_ABORTED_BY_CALLBACK, TransferFailure::Stopped},
    {CURLE_UNSUPPORTED_PROTOCOL, TransferFailure::BadAddress},
    {CURLE_URL_MALFORMAT, TransferFailure::BadAddress},
    {CURLE_COULDNT_RESOLVE_HOST, TransferFailure::NoSuchHost},
    {CURLE_COULDNT_RESOLVE_PROXY, TransferFailure::NoSuchHost},
    {CURLE_COULDNT_CONNECT, TransferFailure::NotConnected},
    {CURLE_INTERFACE_FAILED, TransferFailure::NotConnected},
    {CURLE_SSL_CONNECT_ERROR, TransferFailure::Tls},
    {CURLE_SSL_CERTPROBLEM, TransferFailure::Tls},
    {CURLE_SSL_CIPHER, TransferFailure::Tls},
    {CURLE_PEER_FAILED_VERIFICATION, TransferFailure::Tls},
    {CURLE_USE_SSL_FAILED, TransferFailure::Tls},
    {CURLE_SSL_CACERT_BADFILE, TransferFailure::Tls},
    {CURLE_SSL_ISSUER_ERROR, TransferFailure::Tls},
    {CURLE_SSL_INVALIDCERTSTATUS, TransferFailure::Tls},
    {CURLE_OPERATION_TIMEDOUT, TransferFailure::TimedOut},
    {CURLE_FILESIZE_EXCEEDED, TransferFailure::TooLarge},
    {CURLE_HTTP_RETURNED_ERROR, TransferFailure::HttpStatus},
};

}  // namespace

TransferFailure FailureOf(int code, bool hasAnswered) {
  const auto* const row = std::ranges::find(kRows, code, &Row::code);
  if (row == std::end(kRows)) return TransferFailure::Other;
  const bool isTargetBad = hasAnswered && row->failure == TransferFailure::BadAddress;
  return isTargetBad ? TransferFailure::Other : row->failure;
}

}  // namespace feedloom
