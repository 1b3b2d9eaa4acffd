#pragma once

#include "controls/CVxFormDialog.h"
#include "ui/Login.h"

namespace feedloom {

class CVxEdit;

// Asks for the name and password that a web server or a proxy wants. Nothing is kept.
class CRSS_LoginDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_LoginDlg(const Skin& skin, QWidget* parent, const LoginQuestion& question);

  Login Entered() const;

 private:
  CVxEdit* name_;
  CVxEdit* password_;
};

}  // namespace feedloom
