#include "ui/dialogs/CRSS_LoginDlg.h"

#include "controls/CVxEdit.h"
#include "skin/Keys.h"

namespace feedloom {

CRSS_LoginDlg::CRSS_LoginDlg(const Skin& skin, QWidget* parent, const LoginQuestion& question)
    : CVxFormDialog(skin, kTextLoginTitle, parent) {
  AddEdit(question.isProxy ? kTextLoginProxy : kTextLoginHost)->ShowOnly(question.host);
  if (!question.realm.isEmpty()) AddEdit(kTextLoginRealm)->ShowOnly(question.realm);
  name_ = AddEdit(kTextLoginName);
  password_ = AddEdit(kTextLoginPassword);
  password_->setEchoMode(QLineEdit::Password);
  AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
  name_->setText(question.name);
  (question.name.isEmpty() ? name_ : password_)->setFocus();
}

Login CRSS_LoginDlg::Entered() const { return {name_->text(), password_->text()}; }

}  // namespace feedloom
