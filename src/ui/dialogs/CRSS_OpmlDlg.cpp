#include "ui/dialogs/CRSS_OpmlDlg.h"

#include "ingest/WebAddress.h"
#include "skin/Keys.h"
#include "ui/Frame.h"
#include "vxctrl/CVxEdit.h"

namespace feedloom {

CRSS_OpmlDlg::CRSS_OpmlDlg(Frame& frame, QWidget* parent)
    : CVxFormDialog(frame.GetSkin(), kTextOpmlTitle, parent),
      frame_(frame),
      address_(*AddEdit(kTextOpmlName)) {
  AddButtons(kSectionOpml, kButtonOpmlConfirm, kButtonOpmlCancel);
}

std::string CRSS_OpmlDlg::Address() const {
  return CompleteFeedAddress(address_.TrimmedText().toStdString(),
                             frame_.GetSkin().GetText(kSectionTexts, kTextUrlScheme));
}

void CRSS_OpmlDlg::accept() {
  if (!Address().empty()) return CVxFormDialog::accept();
  address_.setFocus();
  frame_.ShowTextMessage(kSectionTexts, kTextOpmlEmpty, MsgBoxKind::Notice);
}

}  // namespace feedloom
