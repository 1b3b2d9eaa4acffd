#pragma once

#include "ui/dialogs/NameDialog.h"

namespace feedloom {

// Asks for the title of a new cabinet, which the caller adds to the store.
class CRSS_CabinetAddDlg : public NameDialog {
  Q_OBJECT

 public:
  CRSS_CabinetAddDlg(Desk& desk, QWidget* parent);

 protected:
  bool IsTaken(const std::string& name) const override;
};

}  // namespace feedloom
