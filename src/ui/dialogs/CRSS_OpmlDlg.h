#pragma once

#include <string>

#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;

// Asks for the address of an OPML list. OK with an empty field shows a message and keeps the dialog
// open.
class CRSS_OpmlDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_OpmlDlg(Frame& frame, QWidget* parent);

  // The typed address, completed with its scheme and in ASCII; empty when only blanks were typed.
  std::string Address() const;

  void accept() override;

 private:
  Frame& frame_;
  CVxEdit& address_;
};

}  // namespace feedloom
