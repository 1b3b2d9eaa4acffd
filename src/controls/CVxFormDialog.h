#pragma once

#include <vector>

#include "controls/CVxDialog.h"

class QFormLayout;
class QVBoxLayout;

namespace feedloom {

class CVxComboBox;
class CVxEdit;

// A dialog with a column of labelled fields above a row of buttons. The derived class's constructor
// adds fields in reading order, then the buttons. The Tab key follows that order, and the first
// field has the focus. The size is fixed to that of the contents.
class CVxFormDialog : public CVxDialog {
  Q_OBJECT

 protected:
  CVxFormDialog(const Skin& skin, const char* titleKey, QWidget* parent);

  // Adds a row with a label, `field` and, unless null, the button `beside` it. Both become
  // children.
  void AddRow(const char* labelKey, QWidget* field, CButtonEx* beside = nullptr);
  // Adds a row without a label, and returns its empty field, a child.
  QWidget* AddBelow();
  // Add a row with a new field, a child, and return it.
  CVxEdit* AddEdit(const char* labelKey, CButtonEx* beside = nullptr);
  // Adds a row with a text of any length, which is wrapped, and can be selected.
  void AddText(const char* labelKey, const QString& text);
  CVxComboBox* AddComboBox(const char* labelKey, CButtonEx* beside = nullptr);

  // Adds the row of MakeButtonRow below the fields. Returns the OK button.
  CButtonEx* AddButtons(const char* section, const char* confirmKey, const char* cancelKey);

 private:
  QVBoxLayout* const column_;
  QFormLayout* const rows_;
  std::vector<QWidget*> stops_;  // of the Tab key, in reading order
};

}  // namespace feedloom
