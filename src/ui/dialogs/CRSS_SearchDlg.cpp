#include "ui/dialogs/CRSS_SearchDlg.h"

#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "ui/Desk.h"

namespace feedloom {

CRSS_SearchDlg::CRSS_SearchDlg(Desk& desk, QWidget* parent)
    : CVxFormDialog(desk.GetSkin(), kTextSearchDialogTitle, parent),
      desk_(desk),
      word_(*AddEdit(kTextSearchDialogLabel)) {
  AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
}

std::string CRSS_SearchDlg::Word() const {
  return FromQString(desk_.GetSkin().Config().GetCodePage(), word_.text());
}

void CRSS_SearchDlg::accept() {
  if (!word_.text().isEmpty()) return CVxFormDialog::accept();
  word_.setFocus();
  desk_.ShowTextMessage(kSectionTexts, kTextSearchEmpty, MsgBoxKind::Notice);
}

}  // namespace feedloom
