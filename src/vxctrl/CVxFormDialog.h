#pragma once

#include <vector>

#include "vxctrl/CVxDialog.h"

class QFormLayout;
class QVBoxLayout;

namespace feedloom {

class CVxComboBox;
class CVxEdit;

// A dialog that is a column of labelled fields above a row of image buttons. A derived dialog's
// constructor adds them in reading order, the buttons last: the Tab key follows that order, and the
// first field has the keyboard. The size follows the contents.
class CVxFormDialog : public CVxDialog {
  Q_OBJECT

 protected:
  CVxFormDialog(const Skin& skin, const char* titleKey, QWidget* parent);

  // A row with any field, and with a button beside it if there is one; both become children.
  void AddRow(const char* labelKey, QWidget* field, CButtonEx* beside = nullptr);
  // An empty field without a label, below the one before.
  QWidget* AddBelow();
  CVxEdit* AddEdit(const char* labelKey, CButtonEx* beside = nullptr);
  CVxComboBox* AddComboBox(const char* labelKey, CButtonEx* beside = nullptr);

  // MakeButtonRow, below the fields. Returns OK.
  CButtonEx* AddButtons(const char* section, const char* confirmKey, const char* cancelKey);

 private:
  QVBoxLayout* const column_;
  QFormLayout* const rows_;
  std::vector<QWidget*> stops_;  // of the Tab key, in reading order
};

}  // namespace feedloom
