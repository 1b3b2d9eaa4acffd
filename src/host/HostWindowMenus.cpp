// The menus of the main window.
#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "host/HostSwitches.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/MessageLog.h"
#include "host/MessagesDialog.h"
#include "profile/SharePaths.h"
#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {

void HostWindow::MakeMenu(const ViewChoices& view) {
  QMenu& file = *menuBar()->addMenu(HostText(kHostTextMenuFile));
  AddEntry(file, kHostTextMenuRefreshAll, [this] {
    SendToFrame(kMessageRefreshAll);
  }).setShortcut(Qt::CTRL | Qt::Key_R);
  MakeStopEntry(file);
  AddEntry(file, kHostTextMenuShowMessage, [this] { SendToFrame(kMessageShowTextAgain); });
  AddEntry(file, kHostTextMenuMessages, [this] { (new MessagesDialog(*log_, this))->show(); });
  AddEntry(file, kHostTextMenuSettings, [this] { SendToFrame(kMessageOpenPanel); });
  file.addSeparator();
  AddEntry(file, kHostTextMenuBackup, [this] { emit BackupWanted(); });
  AddEntry(file, kHostTextMenuRestore, [this] { emit RestoreWanted(); });
  file.addSeparator();
  AddEntry(file, kHostTextMenuQuit, [this] { Quit(); }).setShortcut(Qt::CTRL | Qt::Key_Q);
  MakeViewMenu(view);
  QMenu& help = *menuBar()->addMenu(HostText(kHostTextMenuHelp));
  MakeKeysEntry(help);
  AddEntry(help, kHostTextMenuAbout, [this] { emit AboutWanted(); });
}

// The module listens to the key in its frame; here the key is shown, and used in the menu bar only.
void HostWindow::MakeKeysEntry(QMenu& menu) {
  QAction& entry = AddEntry(menu, kHostTextMenuKeys, [this] { SendToFrame(kMessageShowKeys); });
  entry.setShortcut(Qt::Key_F1);
  entry.setShortcutContext(Qt::WidgetShortcut);
}

// It is grey from the click on until another refresh begins.
void HostWindow::MakeStopEntry(QMenu& menu) {
  menu.setToolTipsVisible(true);
  stopRefresh_ = menu.addAction(HostText(kHostTextMenuStopRefresh));
  connect(stopRefresh_, &QAction::triggered, this, [this] {
    stopRefresh_->setEnabled(false);
    SendToFrame(kMessageStopRefresh);
  });
}

// `run` is queued: it may open a dialog, and a screen reader that triggers the entry would wait
// until that dialog is closed.
QAction& HostWindow::AddEntry(QMenu& menu, const char* textKey, const std::function<void()>& run) {
  QAction& action = *menu.addAction(HostText(textKey));
  action.setAutoRepeat(false);
  connect(&action, &QAction::triggered, this, run, Qt::QueuedConnection);
  return action;
}

void HostWindow::MakeViewMenu(const ViewChoices& choices) {
  QMenu& view = *menuBar()->addMenu(HostText(kHostTextMenuView));
  auto& skins = *new QActionGroup(this);
  AddAppearance(view, skins, kHostTextMenuLightSkin, {kLightSkin, appearance_.language});
  AddAppearance(view, skins, kHostTextMenuDarkSkin, {kDarkSkin, appearance_.language});
  view.addSeparator();
  auto& languages = *new QActionGroup(this);
  AddAppearance(view, languages, kHostTextMenuKorean, {appearance_.skin, "KOR"});
  AddAppearance(view, languages, kHostTextMenuEnglish, {appearance_.skin, "ENG"});
  view.addSeparator();
  auto& places = *new QActionGroup(this);
  AddListPlace(view, places, kHostTextMenuListAbove, ListPlace::Above,
               choices.listPlace == ListPlace::Above);
  AddListPlace(view, places, kHostTextMenuListBeside, ListPlace::Beside,
               choices.listPlace == ListPlace::Beside);
  view.addSeparator();
  MakeUnreadEntry(view);
  view.setToolTipsVisible(true);
  for (const HostSwitch& one : HostSwitches())
    AddSwitch(view, one, std::ranges::find(choices.on, &one) != choices.on.end());
}

void HostWindow::AddSwitch(QMenu& menu, const HostSwitch& which, bool isOn) {
  QAction& action = *menu.addAction(HostText(which.textKey));
  action.setCheckable(true);
  action.setChecked(isOn);
  action.setToolTip(which.tipKey == nullptr ? "" : HostText(which.tipKey));
  connect(&action, &QAction::toggled, this,
          [this, &which](bool isTurnedOn) { emit SwitchTurned(which, isTurnedOn); });
}

// What the module answers shows, as it may not know the message.
void HostWindow::MakeUnreadEntry(QMenu& menu) {
  unreadOnly_ = menu.addAction(HostText(kHostTextMenuUnreadOnly));
  unreadOnly_->setCheckable(true);
  connect(unreadOnly_, &QAction::triggered, this, [this](bool isOn) {
    unreadOnly_->setChecked(SendToFrame(kMessageShowUnreadOnly, isOn ? 1 : 0) == 1);
  });
}

void HostWindow::AddAppearance(QMenu& menu, QActionGroup& group, const char* textKey,
                               const Appearance& appearance) {
  QAction& action = AddEntry(menu, textKey, [this, appearance] {
    if (appearance != appearance_) emit AppearanceChosen(appearance);
  });
  group.addAction(&action);
  action.setCheckable(true);
  action.setChecked(appearance == appearance_);
}

void HostWindow::AddListPlace(QMenu& menu, QActionGroup& group, const char* textKey,
                              ListPlace place, bool isChosen) {
  QAction& action = AddEntry(menu, textKey, [this, place] { emit ListPlaceChosen(place); });
  group.addAction(&action);
  action.setCheckable(true);
  action.setChecked(isChosen);
}

}  // namespace feedloom
