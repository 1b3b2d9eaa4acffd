#include "ui/dialogs/CRSS_LoginDlg.h"

#include "controls/CVxEdit.h"
#include "skin/Keys.h"

namespace feedloom {

CRSS_LoginDlg::CRSS_LoginDlg(const Skin& skin, QWidget* parent, const LoginQuestion& question)
    : CVxFormDialog(skin, kTextLoginTitle, parent) {
  Show(question.isProxy ? kTextLoginProxy : kTextLoginHost, question.host);
  Show(kTextLoginRealm, question.realm);
  name_ = AddEdit(kTextLoginName);
  password_ = AddEdit(kTextLoginPassword);
  password_->setEchoMode(QLineEdit::Password);
  AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
  name_->setFocus();
}

// As in a field of the other dialogs, the text can be copied and scrolled.
void CRSS_LoginDlg::Show(const char* labelKey, const QString& text) {
  CVxEdit* const box = AddEdit(labelKey);
  box->setReadOnly(true);
  box->setText(text);
  box->setCursorPosition(0);
}

Login CRSS_LoginDlg::Entered() const { return {name_->text(), password_->text()}; }

}  // namespace feedloom
