#include "ui/FaultText.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "skin/Keys.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"

namespace feedloom {
namespace {

using Kind = FeedFaultKind;

// How the detail follows the text; nullptr: not at all.
constexpr char kAfterColon[] = ": %s";
constexpr char kAsElement[] = " (<%s>)";

struct Row {
  Kind kind;
  const char* key;
  const char* keyOfAny;  // of hosts without a text for `key`
  const char* detail;
};
constexpr Row kRows[] = {
    {Kind::BadAddress, kTextFaultAddress, kTextChannelDownloadFailed, nullptr},
    {Kind::NoSuchHost, kTextFaultHost, kTextChannelDownloadFailed, nullptr},
    {Kind::NotConnected, kTextFaultConnection, kTextChannelDownloadFailed, nullptr},
    {Kind::Tls, kTextFaultTls, kTextChannelDownloadFailed, kAfterColon},
    {Kind::TimedOut, kTextFaultTime, kTextChannelDownloadFailed, nullptr},
    {Kind::TooLarge, kTextFaultSize, kTextChannelDownloadFailed, kAfterColon},
    {Kind::HttpStatus, kTextFaultStatus, kTextChannelDownloadFailed, nullptr},
    {Kind::LoginWanted, kTextLoginWanted, kTextChannelDownloadFailed, nullptr},
    {Kind::WebPage, kTextFaultPage, kTextDocumentRefused, nullptr},
    {Kind::OpmlList, kTextFaultList, kTextDocumentRefused, nullptr},
    {Kind::OtherDocument, kTextFaultDocument, kTextDocumentRefused, kAsElement},
    {Kind::BrokenXml, kTextFaultXml, kTextDocumentRefused, kAfterColon},
    {Kind::Empty, kTextFaultEmpty, kTextDocumentRefused, nullptr},
    {Kind::NotStored, kTextFaultStore, kTextChannelDownloadFailed, nullptr},
    {Kind::Other, kTextFaultOther, kTextChannelDownloadFailed, kAfterColon},
};

// What a status means (RFC 9110, RFC 6585).
struct Status {
  int number;
  const char* key;
};
constexpr Status kStatuses[] = {
    {401, kTextStatus401}, {403, kTextStatus403}, {404, kTextStatus404}, {410, kTextStatus410},
    {429, kTextStatus429}, {500, kTextStatus500}, {502, kTextStatus502}, {503, kTextStatus503},
};

// " (not found)"; empty for a status without words.
std::string Meaning(const Skin& skin, const FeedFault& fault) {
  const auto* const status = std::ranges::find(kStatuses, fault.number, &Status::number);
  if (fault.kind != Kind::HttpStatus || status == std::end(kStatuses)) return {};
  const std::string words = skin.GetText(kSectionTexts, status->key);
  return words.empty() ? words : WithTitle(" (%s)", words);
}

std::string Detail(const Skin& skin, const FeedFault& fault, const char* form) {
  if (form == nullptr || fault.detail.empty()) return {};
  return WithTitle(form, skin.Config().GetCodePage().FromUtf8(fault.detail));
}

}  // namespace

std::string FaultText(const Skin& skin, const FeedFault& fault) {
  if (fault.kind == Kind::None) return {};
  const auto* row = std::ranges::find(kRows, fault.kind, &Row::kind);
  if (row == std::end(kRows)) --row;
  const std::string text = skin.GetText(kSectionTexts, row->key);
  if (text.empty()) return skin.GetText(kSectionTexts, row->keyOfAny);
  return WithNumbers(text, {fault.number, fault.column}) + Meaning(skin, fault) +
         Detail(skin, fault, row->detail);
}

}  // namespace feedloom
