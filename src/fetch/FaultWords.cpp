#include "fetch/FaultWords.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>

namespace feedloom {
namespace {

using Kind = FeedFaultKind;

struct Row {
  Kind kind;
  std::string_view name;
  std::string_view words;         // may be followed by the detail
  std::string_view detailFormat;  // what follows when there is a detail
};
constexpr Row kRows[] = {
    {Kind::None, "", "", ""},
    {Kind::BadAddress, "bad-address", "no address of the web", ""},
    {Kind::NoSuchHost, "no-such-host", "no such host", ""},
    {Kind::NotConnected, "not-connected", "connection refused, or no way to the server", ""},
    {Kind::Tls, "tls", "TLS", ": {}"},
    {Kind::TimedOut, "timed-out", "timed out", ""},
    {Kind::TooLarge, "too-large", "too large", ": {}"},
    {Kind::HttpStatus, "http-status", "HTTP status {}", ""},
    {Kind::LoginWanted, "login-wanted", "the server wants a name and a password", ""},
    {Kind::WebPage, "web-page", "a web page, not a feed", ""},
    {Kind::OpmlList, "opml-list", "an OPML list, not a feed", ""},
    {Kind::OtherDocument, "other-document", "another document, not a feed", ": {}"},
    {Kind::BrokenXml, "broken-xml", "broken XML in line {}, column {}", ": {}"},
    {Kind::Empty, "empty", "an empty document", ""},
    {Kind::NotStored, "not-stored", "not all posts could be stored ({} missing)", ""},
    {Kind::Other, "other", "failed", ": {}"},
};

const Row& RowOf(Kind kind) {
  const auto* const row = std::ranges::find(kRows, kind, &Row::kind);
  return row == std::end(kRows) ? *std::prev(row) : *row;
}

}  // namespace

std::string FaultWords(const FeedFault& fault) {
  const Row& row = RowOf(fault.kind);
  const std::string words = fmt::format(fmt::runtime(row.words), fault.number, fault.column);
  if (fault.detail.empty() || row.detailFormat.empty()) return words;
  return words + fmt::format(fmt::runtime(row.detailFormat), fault.detail);
}

std::string_view FaultKindName(FeedFaultKind kind) { return RowOf(kind).name; }

}  // namespace feedloom
