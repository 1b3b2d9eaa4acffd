#pragma once

#include <string>

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;

// Asks for the address of an OPML list. OK with an empty field shows a message and keeps the dialog
// open.
class CRSS_OpmlDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_OpmlDlg(Desk& desk, QWidget* parent);

  // The typed address, completed with its scheme and in ASCII; empty when only blanks were typed.
  std::string Address() const;

  void accept() override;

 private:
  Desk& desk_;
  CVxEdit& address_;
};

}  // namespace feedloom
