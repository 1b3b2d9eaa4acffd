#pragma once

#include <QMainWindow>
#include <QPointer>
#include <cstdint>

class QLabel;
class QProgressBar;

namespace feedloom {

class ModulePane;

// The main window: menu, status bar, and the module's frame between them. Its texts come from the
// host's tables.
class HostWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit HostWindow(const QString& caption);

  // The parent to hand to the module; what the module reports to it stands in the status bar.
  QWidget* ModuleParent() const;

  // Shows the module's frame, which has the focus from now on and gets the menu's commands. The
  // module keeps it.
  void SetFrame(QWidget* frame);

  // Sends a message to the frame; the answer comes back.
  std::intptr_t SendToFrame(unsigned message);

 signals:
  void Closing();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeMenu();
  void MakeStatusBar();
  void ShowAbout();

  ModulePane* const pane_;
  QLabel* const status_;
  QProgressBar* const busy_;
  QPointer<QWidget> frame_;
};

}  // namespace feedloom
