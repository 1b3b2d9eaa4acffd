#include "ui/panel/ControlPanel.h"

#include "ui/panel/CCtrlPanelDlg.h"

namespace feedloom {

std::optional<Settings> EditSettings(Frame& frame, QWidget* parent, const SettingsAccess& access) {
  auto* dialog = new CCtrlPanelDlg(frame, parent, access);
  std::optional<Settings> settings;
  RunDialog(dialog, [&] { settings = dialog->Values(); });
  return settings;
}

}  // namespace feedloom
