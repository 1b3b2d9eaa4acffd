#include "ui/dialogs/CRSS_ChannelInfoDlg.h"

#include "controls/CButtonEx.h"
#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "net/Url.h"
#include "skin/Keys.h"
#include "ui/ChannelDetails.h"
#include "ui/ChannelReport.h"
#include "ui/Desk.h"

namespace feedloom {
namespace {

std::string StateOf(Desk& desk, const ChannelDetails& channel) {
  const Skin& skin = desk.GetSkin();
  const FeedVisit& visit = channel.visit;
  const std::string state = StateText(skin, channel.state, visit, desk.GetStore().GetClock().Now());
  if (!state.empty()) return state;
  const bool isTried = visit.tried != std::chrono::sys_seconds();
  return skin.GetText(kSectionTexts, isTried ? kTextChannelWell : kTextTimeUnknown);
}

}  // namespace

CRSS_ChannelInfoDlg::CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelDetails& channel)
    : CVxFormDialog(desk.GetSkin(), kTextChannelInfoTitle, parent) {
  Show(desk, kTextChannelInfoName, channel.title);
  Show(desk, kTextChannelInfoAddress, channel.xmlLink);
  Show(desk, kTextChannelInfoGroup, channel.folderName);
  if (desk.GetSkin().Config().HasHelpfulDialogs()) ShowVisit(desk, channel);
  AddButtons(kSectionChannelInfo, kButtonChannelInfoConfirm, nullptr)->setFocus();
}

void CRSS_ChannelInfoDlg::ShowVisit(Desk& desk, const ChannelDetails& channel) {
  const FeedVisit& visit = channel.visit;
  AddText(kTextChannelInfoState, ToQString(desk.GetStore().TextCodePage(), StateOf(desk, channel)));
  Show(desk, kTextChannelInfoSucceeded, VisitTime(desk.GetSkin(), visit.succeeded));
  Show(desk, kTextChannelInfoTried, VisitTime(desk.GetSkin(), visit.tried));
  const std::string moved = NewAddressOf(channel, visit);
  if (!moved.empty()) Show(desk, kTextChannelInfoMoved, UrlWithoutLogin(moved));
}

void CRSS_ChannelInfoDlg::Show(Desk& desk, const char* labelKey, const std::string& text) {
  AddEdit(labelKey)->ShowOnly(ToQString(desk.GetStore().TextCodePage(), text));
}

}  // namespace feedloom
