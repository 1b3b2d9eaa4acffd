// The skinned dialogs' base, and the way to show one.
#pragma once

#include <QDialog>
#include <functional>

class QFormLayout;
class QVBoxLayout;

namespace feedloom {

class CButtonEx;
class CVxComboBox;
class CVxEdit;
class Skin;

// A column of labelled fields above a row of image buttons. A derived dialog's constructor adds
// them in reading order, the buttons last: the Tab key follows that order, and the first field has
// the keyboard. Enter presses OK, Escape cancels. The size follows the contents.
//
// OK calls accept(). A dialog that checks its fields overrides it, shows its message and returns,
// and stays open so; the dialog may have gone when the message has been read. Keys of texts are
// those of kSectionTexts.
class CVxDialog : public QDialog {
  Q_OBJECT

 protected:
  // The host's caption when `titleKey` is null. `skin` outlives the constructor of the derived
  // dialog.
  CVxDialog(const Skin& skin, const char* titleKey, QWidget* parent);

  // A row with any field, which becomes a child.
  void AddRow(const char* labelKey, QWidget* field);
  CVxEdit* AddEdit(const char* labelKey);
  CVxComboBox* AddComboBox(const char* labelKey);

  // OK, and Cancel unless `cancelKey` is null; the keys name images in this section of the skin.
  void AddButtons(const char* section, const char* confirmKey, const char* cancelKey);

  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString Text(const char* key) const;
  CButtonEx* MakeButton(const char* section, const char* imageKey, const char* textKey);

  const Skin& skin_;
  QVBoxLayout* const column_;
  QFormLayout* const rows_;
  CButtonEx* confirm_ = nullptr;
};

// Shows `dialog`, which was made by new, until it is closed, and deletes it. True when it was
// accepted: `read`, which takes the answer out of its fields, was called then. False also when its
// parent went meanwhile, and the dialog with it; then nothing of the parent is left either.
bool RunDialog(CVxDialog* dialog, const std::function<void()>& read);

}  // namespace feedloom
