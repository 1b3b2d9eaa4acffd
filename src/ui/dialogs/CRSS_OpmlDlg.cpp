#include "ui/dialogs/CRSS_OpmlDlg.h"

#include "controls/CVxEdit.h"
#include "feed/WebAddress.h"
#include "skin/Keys.h"
#include "ui/Desk.h"

namespace feedloom {

CRSS_OpmlDlg::CRSS_OpmlDlg(Desk& desk, QWidget* parent)
    : CVxFormDialog(desk.GetSkin(), kTextOpmlTitle, parent),
      desk_(desk),
      address_(*AddEdit(kTextOpmlName)) {
  AddButtons(kSectionOpml, kButtonOpmlConfirm, kButtonOpmlCancel);
}

std::string CRSS_OpmlDlg::Address() const {
  return CompleteFeedAddress(address_.TrimmedText().toStdString(),
                             desk_.GetSkin().GetText(kSectionTexts, kTextUrlScheme));
}

void CRSS_OpmlDlg::accept() {
  if (!Address().empty()) return CVxFormDialog::accept();
  address_.setFocus();
  desk_.ShowTextMessage(kSectionTexts, kTextOpmlEmpty, MsgBoxKind::Notice);
}

}  // namespace feedloom
