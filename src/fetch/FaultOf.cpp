#include "fetch/FaultOf.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "text/CodePage.h"
#include "text/Text.h"

namespace feedloom {
namespace {

using Kind = FeedFaultKind;

constexpr std::size_t kLongestDetail = 200;  // bytes: more than a tip can show

// `text`, which a server may have chosen, as a detail: one line of valid UTF-8.
std::string Detail(std::string_view text) {
  std::string line = CodePage::Utf8().FromUtf8(text.substr(0, kLongestDetail));
  std::ranges::replace_if(
      line, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
  return std::string(Trim(line));
}

// What the transfer library says, without what the kind says already, and without the numbers and
// names that its TLS library puts in front.
std::string TlsReason(std::string_view error) {
  if (error.find("routines:") != error.npos) return Detail(error.substr(error.rfind(':') + 1));
  constexpr std::string_view kBeginnings[] = {"SSL certificate problem: ", "SSL: "};
  for (const std::string_view beginning : kBeginnings) {
    if (error.starts_with(beginning)) return Detail(error.substr(beginning.size()));
  }
  return Detail(error);
}

Kind KindOf(TransferFailure failure) {
  switch (failure) {
    case TransferFailure::BadAddress:
      return Kind::BadAddress;
    case TransferFailure::NoSuchHost:
      return Kind::NoSuchHost;
    case TransferFailure::NotConnected:
      return Kind::NotConnected;
    case TransferFailure::Tls:
      return Kind::Tls;
    case TransferFailure::Stopped:
    case TransferFailure::TimedOut:
      return Kind::TimedOut;
    case TransferFailure::TooLarge:
      return Kind::TooLarge;
    case TransferFailure::HttpStatus:
      return Kind::HttpStatus;
    case TransferFailure::LoginWanted:
      return Kind::LoginWanted;
    default:
      return Kind::Other;
  }
}

Kind KindOf(DocumentFaultKind kind) {
  switch (kind) {
    case DocumentFaultKind::None:
      return Kind::TimedOut;
    case DocumentFaultKind::WebPage:
      return Kind::WebPage;
    case DocumentFaultKind::OpmlList:
      return Kind::OpmlList;
    case DocumentFaultKind::OtherDocument:
      return Kind::OtherDocument;
    case DocumentFaultKind::BrokenXml:
      return Kind::BrokenXml;
    case DocumentFaultKind::Empty:
      return Kind::Empty;
    case DocumentFaultKind::TooLarge:
      return Kind::TooLarge;
    default:
      return Kind::Other;
  }
}

}  // namespace

FeedFault FaultOf(const TransferResult& failed) {
  const Kind kind = KindOf(failed.failure);
  switch (kind) {
    case Kind::HttpStatus:
      return {.kind = kind, .number = static_cast<int>(failed.status)};
    case Kind::Tls:
      return {.kind = kind, .detail = TlsReason(failed.error)};
    case Kind::TooLarge:
    case Kind::Other:
      return {.kind = kind, .detail = Detail(failed.error)};
    default:
      return {.kind = kind};
  }
}

FeedFault FaultOf(const DocumentFault& refused) {
  return {KindOf(refused.kind), refused.line, refused.column, Detail(refused.detail)};
}

}  // namespace feedloom
