#include "ui/dialogs/CRSS_SearchDlg.h"

#include "skin/Keys.h"
#include "ui/Frame.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/QtText.h"

namespace feedloom {

CRSS_SearchDlg::CRSS_SearchDlg(Frame& frame, QWidget* parent)
    : CVxFormDialog(frame.GetSkin(), kTextSearchDialogTitle, parent),
      frame_(frame),
      word_(*AddEdit(kTextSearchDialogLabel)) {
  AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
}

std::string CRSS_SearchDlg::Word() const {
  return FromQString(frame_.GetSkin().Config().GetCodePage(), word_.text());
}

void CRSS_SearchDlg::accept() {
  if (!word_.text().isEmpty()) return CVxFormDialog::accept();
  word_.setFocus();
  frame_.ShowTextMessage(kSectionTexts, kTextSearchEmpty, MsgBoxKind::Notice);
}

}  // namespace feedloom
