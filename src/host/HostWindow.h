#pragma once

#include <QMainWindow>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "skin/HostConfig.h"

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QProgressBar;
class QToolButton;

namespace feedloom {

class MessageLog;
class ModulePane;
class WindowMessage;
struct HostSwitch;

// A skin and a language, as the view menu offers them. A skin of another name, or an empty string,
// is no entry of the menu.
struct Appearance {
  std::string skin;      // kLightSkin, kDarkSkin
  std::string language;  // "KOR", "ENG"

  bool operator==(const Appearance&) const = default;
};

// What else the view menu shows at first.
struct ViewChoices {
  ListPlace listPlace = ListPlace::Default;
  std::vector<const HostSwitch*> on;  // of HostSwitches()
};

// The main window: a menu, the module's frame and a status bar. Its texts come from the host's
// tables, which must be set (SetHostTables). Interface thread.
class HostWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `view` is what the view menu shows at first.
  explicit HostWindow(const QString& caption, Appearance appearance = {}, ViewChoices view = {});

  const QString& Caption() const { return caption_; }

  // The widget to hand to the module's Create as parent. The window owns it, and shows the texts
  // that the module sends to it in the status bar.
  QWidget* ModuleParent() const;

  // Shows `frame`, gives it the focus, and sends it the menu's commands from now on. The module
  // still owns it.
  void SetFrame(QWidget* frame);

  // Sends the frame a message (threads/Messages.h) and returns its result; 0 without a frame.
  std::intptr_t SendToFrame(unsigned message, std::intptr_t wParam = 0, std::intptr_t lParam = 0);
  bool HasFrame() const { return frame_ != nullptr; }

  // When the window is closed, `stays` is asked: true hides it. An empty one is never true.
  void StayOnClose(std::function<bool()> stays) { staysOnClose_ = std::move(stays); }
  // Ends the program, also when the window is hidden.
  void Quit();

  // Shows `text` in the status bar, as a text of the module.
  void ShowText(const QString& text);

 signals:
  // The window is about to close.
  void Closing();
  // So many posts are unread.
  void UnreadCounted(int unread);
  // A refresh has brought so many posts; `lines` as in kMessageNewPosts.
  void NewPostsCame(int posts, const QString& lines);
  // The user has chosen another skin or language than the current one.
  void AppearanceChosen(const feedloom::Appearance& appearance);
  // The user wants to back up the profile, or to restore a backup.
  void BackupWanted();
  void RestoreWanted();
  // The user wants to know about the program.
  void AboutWanted();
  // The user has turned one of HostSwitches() on or off.
  void SwitchTurned(const feedloom::HostSwitch& which, bool isOn);
  // The user has chosen where the list stands.
  void ListPlaceChosen(feedloom::ListPlace place);

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeMenu(const ViewChoices& view);
  void MakeViewMenu(const ViewChoices& view);
  QAction& AddEntry(QMenu& menu, const char* textKey, const std::function<void()>& run);
  // Adds an entry to the view menu that chooses `appearance`; `group` makes it exclusive.
  void AddAppearance(QMenu& menu, QActionGroup& group, const char* textKey,
                     const Appearance& appearance);
  void AddListPlace(QMenu& menu, QActionGroup& group, const char* textKey, ListPlace place,
                    bool isChosen);
  void MakeUnreadEntry(QMenu& menu);
  void AddSwitch(QMenu& menu, const HostSwitch& which, bool isOn);
  void MakeKeysEntry(QMenu& menu);
  void MakeStopEntry(QMenu& menu);
  void MakeStatusBar();
  // `isRunning` tells whether a refresh runs.
  void ShowRefresh(bool isRunning);
  void ShowProgress(int done, int total);
  void ShowUnread(int unread);
  void TellNewPosts(const WindowMessage& message);
  void OfferUndo(const QString& step);

  const QString caption_;
  const Appearance appearance_;
  ModulePane* const pane_;
  MessageLog* const log_;
  QLabel* const status_;
  QToolButton* const undo_;
  QProgressBar* const busy_;
  QToolButton* const stop_;
  QAction* stopRefresh_ = nullptr;  // the menu's entry, and what the button does
  QAction* unreadOnly_ = nullptr;
  QPointer<QWidget> frame_;
  std::function<bool()> staysOnClose_;
};

}  // namespace feedloom
