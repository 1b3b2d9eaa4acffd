#pragma once

#include <array>

#include "controls/CVxDialog.h"
#include "ui/Settings.h"

class QButtonGroup;
class QStackedWidget;

namespace feedloom {

class CCtrlPanel04;
class CtrlPanelPage;
class Desk;
struct SettingsAccess;

// The control panel: a row of tabs, the page of the selected tab, OK and Cancel. The constructor
// loads the settings. OK saves them; when a value is invalid, OK shows a message and the field, and
// keeps the dialog open; the same when they cannot be saved. Ctrl with Page Up, Page Down or Tab
// changes the page.
class CCtrlPanelDlg : public CVxDialog {
  Q_OBJECT

 public:
  // `access` must outlive the dialog.
  CCtrlPanelDlg(Desk& desk, QWidget* parent, const SettingsAccess& access);

  // The settings as the pages show them.
  Settings Values() const;

  void accept() override;

 private:
  static constexpr int kPageCount = 4;

  QHBoxLayout* MakeTabs();
  void AddPages();
  void AddPageKeys(const QList<QKeySequence>& keys, int step);
  void TakePlace(const QWidget& host);
  void ShowPage(int page);
  // Shows the page `step` pages further, cyclically, and moves the focus to its first control.
  void StepToPage(int step);

  Desk& desk_;
  const SettingsAccess& access_;
  const Settings loaded_;
  QButtonGroup* const tabs_;
  QStackedWidget* const stack_;
  std::array<CtrlPanelPage*, kPageCount> pages_{};
  CCtrlPanel04* deletePage_ = nullptr;
};

}  // namespace feedloom
