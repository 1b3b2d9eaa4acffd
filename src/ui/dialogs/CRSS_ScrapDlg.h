#pragma once

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;

// Asks for the cabinet to save posts to. The only cabinet is selected; with several, none is
// selected at first, and OK without a selection shows a message and keeps the dialog open.
class CRSS_ScrapDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  // Reads the cabinets from the store, which reports a failure; the list is then empty.
  CRSS_ScrapDlg(Desk& desk, QWidget* parent);

  // The id of the selected cabinet; 0 without a selection.
  int CabinetId() const;

  void accept() override;

 private:
  void ListCabinets();

  Desk& desk_;
  CVxComboBox& cabinets_;
};

}  // namespace feedloom
