#pragma once

#include <string>

#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;

// Asks for the address of a list of channels. OK without one says so and leaves the dialog open.
class CRSS_OpmlDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_OpmlDlg(Frame& frame, QWidget* parent);

  // The address that is meant by what stands in the box: complete, in ASCII; empty for blanks.
  std::string Address() const;

  void accept() override;

 private:
  Frame& frame_;
  CVxEdit& address_;
};

}  // namespace feedloom
