#pragma once

#include <string>

#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;

// Asks for the word of a search. OK with an empty word says so and leaves the dialog open.
class CRSS_SearchDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_SearchDlg(Frame& frame, QWidget* parent);

  // As it stands in the box, in the module's code page.
  std::string Word() const;

  void accept() override;

 private:
  Frame& frame_;
  CVxEdit& word_;
};

}  // namespace feedloom
