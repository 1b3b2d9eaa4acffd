#pragma once

#include <QMainWindow>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <string>

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QProgressBar;

namespace feedloom {

class ModulePane;

// How the window is shown at the moment; an empty one is none of those that the menu offers.
struct HostLooks {
  std::string skin;      // kLightSkin, kDarkSkin
  std::string language;  // "KOR", "ENG"

  bool operator==(const HostLooks&) const = default;
};

// The main window: menu, status bar, and the module's frame between them. Its texts come from the
// host's tables.
class HostWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit HostWindow(const QString& caption, HostLooks looks = {});

  // The parent to hand to the module; what the module reports to it stands in the status bar.
  QWidget* ModuleParent() const;

  // Shows the module's frame, which has the focus from now on and gets the menu's commands. The
  // module keeps it.
  void SetFrame(QWidget* frame);

  // Sends a message to the frame; the answer comes back.
  std::intptr_t SendToFrame(unsigned message);

 signals:
  void Closing();
  // The user wants other looks than those of now.
  void LooksChosen(const feedloom::HostLooks& looks);

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeMenu();
  void MakeViewMenu();
  QAction& AddEntry(QMenu& menu, const char* textKey, const std::function<void()>& run);
  // An entry of one of the two groups of the view menu, which leads to `looks`.
  void AddLooks(QMenu& menu, QActionGroup& group, const char* textKey, const HostLooks& looks);
  void MakeStatusBar();
  void ShowAbout();

  const HostLooks looks_;
  ModulePane* const pane_;
  QLabel* const status_;
  QProgressBar* const busy_;
  QPointer<QWidget> frame_;
};

}  // namespace feedloom
