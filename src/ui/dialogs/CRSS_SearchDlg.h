#pragma once

#include <string>

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;

// Asks for the word to search for. OK with an empty field shows a message and keeps the dialog
// open.
class CRSS_SearchDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_SearchDlg(Desk& desk, QWidget* parent);

  // The typed word with its blanks, in the module's code page.
  std::string Word() const;

  void accept() override;

 private:
  Desk& desk_;
  CVxEdit& word_;
};

}  // namespace feedloom
