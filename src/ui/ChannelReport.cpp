#include "ui/ChannelReport.h"

#include "feed/WebAddress.h"
#include "net/Url.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"
#include "threads/Clock.h"
#include "threads/Messages.h"
#include "ui/FaultText.h"

namespace feedloom {
namespace {

using Now = std::chrono::system_clock::time_point;

std::string Text(const Skin& skin, const char* key) { return skin.GetText(kSectionTexts, key); }

// What is known of a failure without the visit.
std::string TextOfState(const Skin& skin, int state) {
  const std::string login = state == kLoginWanted ? Text(skin, kTextLoginWanted) : "";
  if (!login.empty()) return login;
  return Text(skin, state == kDocumentRefused ? kTextDocumentRefused : kTextChannelDownloadFailed);
}

void AddLine(std::string& lines, const std::string& line) {
  if (!line.empty()) lines += (lines.empty() ? "" : "\n") + line;
}

}  // namespace

std::string FailureText(const Skin& skin, int state, const FeedVisit& visit) {
  const std::string fault = FaultText(skin, visit.fault);
  if (state >= 0) return visit.fault.kind == FeedFaultKind::NotStored ? fault : "";
  return fault.empty() ? TextOfState(skin, state) : fault;
}

std::string StateText(const Skin& skin, int state, const FeedVisit& visit, Now now) {
  std::string lines = FailureText(skin, state, visit);
  if (state >= 0) return lines;
  const std::string since = Text(skin, kTextFailingSince);
  if (visit.failingSince != std::chrono::sys_seconds() && !since.empty()) {
    AddLine(lines, WithTitle(since, VisitTime(skin, visit.failingSince)));
  }
  if (IsDead(visit, std::chrono::floor<std::chrono::seconds>(now))) {
    AddLine(lines, Text(skin, kTextChannelDead));
  }
  return lines;
}

std::string ChannelReport(const Skin& skin, const ChannelRow& channel, const FeedVisit& visit,
                          Now now) {
  std::string lines = StateText(skin, channel.state, visit, now);
  const std::string address = NewAddressOf(channel, visit);
  const std::string moved = Text(skin, kTextChannelMoved);
  if (!address.empty() && !moved.empty()) {
    AddLine(lines, WithTitle(moved, UrlWithoutLogin(address)));
  }
  return lines;
}

std::string VisitTime(const Skin& skin, std::chrono::sys_seconds time) {
  if (time == std::chrono::sys_seconds()) return Text(skin, kTextTimeUnknown);
  return FormatLocalTime(time, "%Y-%m-%d %H:%M");
}

std::string NewAddressOf(const Channel& channel, const FeedVisit& visit) {
  const std::string address = EscapedAddress(visit.movedTo);
  return IsWebAddress(address) && address != channel.xmlLink ? address : "";
}

}  // namespace feedloom
