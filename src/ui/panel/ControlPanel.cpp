#include "ui/panel/ControlPanel.h"

#include "ui/panel/CCtrlPanelDlg.h"

namespace feedloom {

std::optional<Settings> EditSettings(Desk& desk, QWidget* parent, const SettingsAccess& access) {
  auto* dialog = new CCtrlPanelDlg(desk, parent, access);
  std::optional<Settings> settings;
  RunDialog(dialog, [&] { settings = dialog->Values(); });
  return settings;
}

}  // namespace feedloom
