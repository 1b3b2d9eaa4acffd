#pragma once

#include <array>

#include "ui/Settings.h"
#include "vxctrl/CVxDialog.h"

class QButtonGroup;
class QStackedWidget;

namespace feedloom {

class CCtrlPanel04;
class CtrlPanelPage;
class Frame;
struct SettingsAccess;

// The control panel: a row of tabs, the page of the tab that is pressed, OK and Cancel. It loads
// the settings when it is made. OK saves them, or says what is wrong, shows where, and leaves the
// dialog open. Ctrl with Page Up, Page Down or Tab goes from page to page.
class CCtrlPanelDlg : public CVxDialog {
  Q_OBJECT

 public:
  // `access` outlives the dialog.
  CCtrlPanelDlg(Frame& frame, QWidget* parent, const SettingsAccess& access);

  // As the pages show them.
  Settings Values() const;

  void accept() override;

 private:
  static constexpr int kPageCount = 4;

  QHBoxLayout* MakeTabs();
  void AddPages();
  void AddPageKeys(const QList<QKeySequence>& keys, int step);
  void TakePlace(const QWidget& host);
  void ShowPage(int page);
  // Goes on to a page and its first control; the one behind the last is the first.
  void StepToPage(int step);

  Frame& frame_;
  const SettingsAccess& access_;
  const Settings loaded_;
  QButtonGroup* const tabs_;
  QStackedWidget* const stack_;
  std::array<CtrlPanelPage*, kPageCount> pages_{};
  CCtrlPanel04* deletePage_ = nullptr;
};

}  // namespace feedloom
