#include "ui/dialogs/CRSS_ChannelAddDlg.h"

#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "check/FeedCheckAnswer.h"
#include "controls/BusyBar.h"
#include "controls/CButtonEx.h"
#include "controls/CVxComboBox.h"
#include "controls/CVxEdit.h"
#include "feed/WebAddress.h"
#include "look/QtText.h"
#include "look/SkinText.h"
#include "net/Url.h"
#include "skin/Keys.h"
#include "store/ChannelAdder.h"
#include "store/Channels.h"
#include "store/SqlText.h"
#include "ui/Desk.h"
#include "ui/FaultText.h"
#include "ui/Login.h"
#include "ui/Refreshing.h"
#include "ui/Subscribing.h"
#include "ui/dialogs/CRSS_GroupAddDlg.h"
#include "ui/dialogs/DialogRules.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/dialogs/FolderList.h"

namespace feedloom {
namespace {

constexpr int kProgressHeight = 6;

// Makes a busy indicator in `room`, which keeps its size while the indicator is hidden.
BusyBar* MakeProgress(const Skin& skin, QWidget* room) {
  auto* const progress = new BusyBar(room);
  progress->setFixedHeight(kProgressHeight);
  progress->setAccessibleName(SkinText(skin, kTextAddChannelChecking));
  progress->setToolTip(progress->accessibleName());
  progress->setFocusPolicy(Qt::ClickFocus);
  auto* const layout = new QVBoxLayout(room);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(progress);
  room->setFixedHeight(kProgressHeight);
  return progress;
}

// A title is shown in many places, where no password should be.
QString WithoutLogin(const QString& address) {
  return QString::fromStdString(UrlWithoutLogin(address.toStdString()));
}

// Web addresses only: `fromPage` may come from a web page, which must not offer a local file.
QString AddressToBeginWith(Desk& desk, const std::string& fromPage) {
  const CodePage codePage = desk.GetStore().TextCodePage();
  const std::string scheme = desk.GetSkin().GetText(kSectionTexts, kTextUrlScheme);
  const bool isWeb = IsWebAddress(CompleteFeedAddress(codePage.ToUtf8(fromPage), scheme));
  return isWeb ? ToQString(codePage, fromPage) : QString();
}

// Of the announced feed whose address is `address`; empty when the engine resolves it in that way.
QString OtherResolution(Desk& desk, const std::string& address) {
  const auto& feeds = desk.State().discoveredFeeds;
  const auto feed = std::ranges::find(feeds, address, &DiscoveredFeed::address);
  if (feed == feeds.end() || feed->resolved == address) return {};
  return AddressToBeginWith(desk, feed->resolved);
}

}  // namespace

CRSS_ChannelAddDlg::CRSS_ChannelAddDlg(Desk& desk, Refreshing& refreshing, Subscribing& subscribing,
                                       QWidget* parent, int folderId, const std::string& address)
    : CVxFormDialog(desk.GetSkin(), kTextAddChannelTitle, parent),
      desk_(desk),
      refreshing_(refreshing),
      subscribing_(subscribing),
      check_(*MakeButton(kSectionAddChannel, kButtonAddChannelCheck, kTextAddChannelCheck)),
      address_(*AddEdit(kTextAddChannelAddress, &check_)),
      progress_(*MakeProgress(desk.GetSkin(), AddBelow())),
      title_(*AddEdit(kTextAddChannelName)),
      addFolder_(*MakeButton(kSectionAddChannel, kButtonAddChannelGroup, kTextAddChannelGroup)),
      folders_(*AddComboBox(kTextGroupSelect, &addFolder_)),
      ok_(*AddButtons(kSectionAddChannel, kButtonAddChannelConfirm, kButtonAddChannelCancel)) {
  address_.setText(AddressToBeginWith(desk, address));
  otherResolution_ = OtherResolution(desk, address);
  ListFolders(desk, folders_);
  ChooseFolder(folders_, folderId);
  if (ChosenFolder(folders_) == 0) folders_.setCurrentIndex(0);
  Connect();
  SetState(State::Unchecked);
}

void CRSS_ChannelAddDlg::Connect() {
  connect(&check_, &QAbstractButton::clicked, this, &CRSS_ChannelAddDlg::Check);
  connect(&addFolder_, &QAbstractButton::clicked, this, &CRSS_ChannelAddDlg::AddFolder);
  connect(&address_, &QLineEdit::textEdited, this, [this] { otherResolution_.clear(); });
  connect(&address_, &QLineEdit::textChanged, this, [this] {
    if (state_ == State::Checked) SetState(State::Unchecked);
  });
}

std::string CRSS_ChannelAddDlg::TextOf(const CVxEdit& box) const {
  return FromQString(desk_.GetStore().TextCodePage(), box.TrimmedText());
}

void CRSS_ChannelAddDlg::SetState(State state) {
  state_ = state;
  const bool isChecking = state == State::Checking;
  const bool isChecked = state == State::Checked;
  // Without this, disabling the fields moves the focus to Cancel, which the next Enter would press.
  progress_.setVisible(isChecking);
  if (isChecking) progress_.setFocus();
  address_.setEnabled(!isChecking);
  check_.setEnabled(!isChecking);
  title_.setEnabled(isChecked);
  folders_.setEnabled(isChecked);
  addFolder_.setEnabled(isChecked);
  ok_.setEnabled(isChecked);
  SetConfirmButton(isChecked ? &ok_ : &check_);
}

// Replaces the text by the completed address, which is ASCII and so the same in any code page.
void CRSS_ChannelAddDlg::Check() {
  const QString typed = address_.TrimmedText();
  if (const char* const fault = CheckAddress(typed.toStdString())) return Refuse(fault, &address_);
  const std::string scheme = desk_.GetSkin().GetText(kSectionTexts, kTextUrlScheme);
  const std::string address = CompleteFeedAddress(typed.toStdString(), scheme);
  address_.setText(QString::fromStdString(address));
  SetState(State::Checking);
  refreshing_.CheckFeed(address, login_, [self = QPointer(this)](const FeedCheckAnswer& answer) {
    if (self) self->OnChecked(answer);
  });
}

void CRSS_ChannelAddDlg::OnChecked(const FeedCheckAnswer& answer) {
  SetState(answer.isFeed ? State::Checked : State::Unchecked);
  if (!answer.loginServer.empty()) return AskLogin(answer.loginServer);
  const QPointer self(this);
  if (answer.loginIsLost) Tell(kTextLoginNotKept);
  if (!self) return;
  if (!answer.isFeed && TryOtherResolution()) return;
  if (!answer.isFeed && !answer.announcedFeed.empty()) return OfferAnnounced(answer.announcedFeed);
  if (!answer.isFeed) return RefuseAddress(answer.fault);
  homePage_ = answer.homePage;
  const CodePage codePage = desk_.GetStore().TextCodePage();
  const std::string title = UnescapeEntities(answer.title);  // as the store decodes it
  title_.setText(title.empty() ? WithoutLogin(address_.text()) : ToLine(codePage, title));
  title_.setFocus();
  title_.selectAll();
}

// `server` is named as "scheme://host:port": over http the password goes out as it is.
void CRSS_ChannelAddDlg::AskLogin(const std::string& server) {
  address_.setFocus();
  const QPointer self(this);
  const bool isRefused = login_ && login_->origin == server;
  if (isRefused) Tell(kTextLoginRefused);
  if (!self) return;
  const std::string name = isRefused ? login_->login.name : "";
  const auto login = ShowLogin(
      desk_, this, {.host = QString::fromStdString(server), .name = QString::fromStdString(name)});
  if (!self) return;
  if (!login) return Refuse(kTextAddChannelCheckError, &address_);
  login_ = {server, {login->name.toStdString(), login->password.toStdString()}};
  Check();
}

bool CRSS_ChannelAddDlg::TryOtherResolution() {
  if (otherResolution_.isEmpty()) return false;
  address_.setText(std::exchange(otherResolution_, {}));
  Check();
  return true;
}

// The address leads to a web page that links to the feed `address`.
void CRSS_ChannelAddDlg::OfferAnnounced(const std::string& address) {
  address_.setFocus();
  const QPointer self(this);
  const auto answer =
      desk_.ShowTextMessage(kSectionTexts, kTextAddChannelAnnounced, MsgBoxKind::Offer);
  if (!self || answer != MsgBoxAnswer::Consented) return;
  address_.setText(QString::fromStdString(address));
  Check();
}

void CRSS_ChannelAddDlg::AddFolder() {
  const QPointer self(this);
  auto* const dialog = new CRSS_GroupAddDlg(desk_, subscribing_, this);
  RunDialog(dialog, [&] {
    const int folderId = dialog->FolderId();
    ListFolders(desk_, folders_);
    ChooseFolder(folders_, folderId);
  });
  if (self) folders_.setFocus();
}

const char* CRSS_ChannelAddDlg::Fault() {
  // Read again: the selected folder may have been deleted meanwhile.
  if (!ListFolders(desk_, folders_)) return kTextAddChannelError;
  return CheckNewChannel(TextOf(title_), ChosenFolder(folders_), [this](int folderId) {
    int id = 0;
    int order = 0;
    return FindChannelByXmlLink(desk_.GetStore(), TextOf(address_), folderId, id, order);
  });
}

const char* CRSS_ChannelAddDlg::Add() {
  ChannelRecord record;
  record.folderId = ChosenFolder(folders_);
  record.title = TextOf(title_);
  record.xmlLink = TextOf(address_);
  record.htmlLink = homePage_;
  if (!AppendChannelRecord(desk_.GetStore(), record)) return kTextAddChannelError;
  if (!record.newlyInserted) return kTextAddChannelDuplicate;  // by another program
  Subscribe(record);
  return nullptr;
}

void CRSS_ChannelAddDlg::Subscribe(const ChannelRecord& record) {
  const ChannelRow row = StoredRow(record);
  subscribing_.ChannelWasAdded(row);
  refreshing_.QueueRefresh({row});
  refreshing_.StartRefresh();
}

void CRSS_ChannelAddDlg::accept() {
  const char* fault = Fault();
  if (fault == nullptr) fault = Add();
  if (fault == nullptr) return CVxFormDialog::accept();
  Refuse(fault, FieldOf(fault));
}

// What the user has to change; OK, to try again, when the store has failed.
QWidget* CRSS_ChannelAddDlg::FieldOf(const std::string& fault) const {
  if (fault == kTextAddChannelError) return &ok_;
  if (TextOf(title_).empty()) return &title_;
  return &folders_;
}

// Says nothing where the host has no such text. The dialog may be destroyed meanwhile.
void CRSS_ChannelAddDlg::Tell(const char* key) {
  if (desk_.GetSkin().GetText(kSectionTexts, key).empty()) return;
  desk_.ShowTextMessage(kSectionTexts, key, MsgBoxKind::Notice);
}

// The dialog may be destroyed while the message is shown; callers must not use it afterwards.
void CRSS_ChannelAddDlg::Refuse(const char* key, QWidget* field) {
  field->setFocus();
  desk_.ShowTextMessage(kSectionTexts, key, MsgBoxKind::Notice);
}

// As Refuse: with the reason, where the host wishes for it and has a text.
void CRSS_ChannelAddDlg::RefuseAddress(const FeedFault& fault) {
  const Skin& skin = desk_.GetSkin();
  const std::string reason = skin.Config().HasHelpfulDialogs() ? FaultText(skin, fault) : "";
  if (reason.empty() || skin.GetText(kSectionTexts, kTextAddChannelNoFeed).empty()) {
    return Refuse(kTextAddChannelCheckError, &address_);
  }
  address_.setFocus();
  desk_.Ask(kTextAddChannelNoFeed, reason, MsgBoxKind::Notice);
}

void CRSS_ChannelAddDlg::done(int result) {
  refreshing_.StopFeedCheck();
  CVxFormDialog::done(result);
}

}  // namespace feedloom
