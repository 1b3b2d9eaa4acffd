#pragma once

#include "ui/dialogs/NameDialog.h"

namespace feedloom {

// Asks for the name of a new cabinet; the caller adds it.
class CRSS_CabinetAddDlg : public NameDialog {
  Q_OBJECT

 public:
  CRSS_CabinetAddDlg(Frame& frame, QWidget* parent);

 protected:
  bool IsTaken(const std::string& name) const override;
};

}  // namespace feedloom
