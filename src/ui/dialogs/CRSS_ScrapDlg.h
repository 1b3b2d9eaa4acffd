#pragma once

#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;

// Has the user choose the cabinet that is to receive posts, of all cabinets in their order. With
// several of them none is chosen at first; OK without a choice says so and leaves the dialog open.
class CRSS_ScrapDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  // Reads the cabinets; a failure is reported by the store and leaves none to choose.
  CRSS_ScrapDlg(Frame& frame, QWidget* parent);

  // Of the chosen cabinet; 0 without a choice.
  int CabinetId() const;

  void accept() override;

 private:
  void ListCabinets();

  Frame& frame_;
  CVxComboBox& cabinets_;
};

}  // namespace feedloom
