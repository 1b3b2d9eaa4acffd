#pragma once

#include <string>

#include "controls/CVxDialog.h"
#include "exchange/ImportValues.h"

namespace feedloom {

// Asks what to do with what is there already of a list that is to be imported. At first the focus
// is on the button that adds only what is missing.
class CRSS_MergeDlg : public CVxDialog {
  Q_OBJECT

 public:
  // `question` is in the module's code page.
  CRSS_MergeDlg(const Skin& skin, const std::string& question, QWidget* parent);

  // Of an accepted dialog.
  NameClash Chosen() const { return chosen_; }

 private:
  void AddQuestion(const std::string& question);
  CButtonEx* AddChoice(const char* textKey, NameClash choice);

  NameClash chosen_ = NameClash::Merge;
};

}  // namespace feedloom
