#include "ui/dialogs/CRSS_ChannelInfoDlg.h"

#include "controls/CButtonEx.h"
#include "controls/CVxComboBox.h"
#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "look/SkinText.h"
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

struct PeriodChoice {
  const char* key;
  std::chrono::minutes period;
};
constexpr PeriodChoice kPeriods[] = {
    {kTextPeriodOfFeed, std::chrono::minutes(0)}, {kTextPeriodHour, std::chrono::hours(1)},
    {kTextPeriodSixHours, std::chrono::hours(6)}, {kTextPeriodDay, std::chrono::days(1)},
    {kTextPeriodWeek, std::chrono::weeks(1)},
};

}  // namespace

CRSS_ChannelInfoDlg::CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelDetails& channel)
    : CVxFormDialog(desk.GetSkin(), kTextChannelInfoTitle, parent), ownPeriod_(channel.ownPeriod) {
  Show(desk, kTextChannelInfoName, channel.title);
  Show(desk, kTextChannelInfoAddress, channel.xmlLink);
  Show(desk, kTextChannelInfoGroup, channel.folderName);
  if (desk.GetSkin().Config().HasHelpfulDialogs()) ShowVisit(desk, channel);
  if (desk.GetSkin().Config().KeepsPeriods()) AddPeriods(channel);
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

// A period that is none of the choices is kept until another is chosen.
void CRSS_ChannelInfoDlg::AddPeriods(const ChannelDetails& channel) {
  periods_ = AddComboBox(kTextChannelInfoPeriod);
  for (const PeriodChoice& choice : kPeriods) {
    periods_->addItem(SkinText(GetSkin(), choice.key),
                      static_cast<qlonglong>(choice.period.count()));
  }
  periods_->setCurrentIndex(periods_->findData(static_cast<qlonglong>(channel.ownPeriod.count())));
}

std::chrono::minutes CRSS_ChannelInfoDlg::Period() const {
  const bool isChosen = periods_ != nullptr && periods_->currentIndex() >= 0;
  return isChosen ? std::chrono::minutes(periods_->currentData().toLongLong()) : ownPeriod_;
}

void CRSS_ChannelInfoDlg::Show(Desk& desk, const char* labelKey, const std::string& text) {
  AddEdit(labelKey)->ShowOnly(ToQString(desk.GetStore().TextCodePage(), text));
}

}  // namespace feedloom
