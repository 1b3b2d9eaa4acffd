#pragma once

#include "ui/dialogs/NameDialog.h"

namespace feedloom {

// Asks for the new name of a folder, which the caller stores.
class CRSS_GroupRenameDlg : public NameDialog {
  Q_OBJECT

 public:
  CRSS_GroupRenameDlg(Desk& desk, QWidget* parent, const std::string& name);

 protected:
  bool IsTaken(const std::string& name) const override;
};

}  // namespace feedloom
