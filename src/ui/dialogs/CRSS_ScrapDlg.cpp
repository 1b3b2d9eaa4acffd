#include "ui/dialogs/CRSS_ScrapDlg.h"

#include "controls/CVxComboBox.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "ui/Desk.h"

namespace feedloom {

CRSS_ScrapDlg::CRSS_ScrapDlg(Desk& desk, QWidget* parent)
    : CVxFormDialog(desk.GetSkin(), kTextScrapDialogTitle, parent),
      desk_(desk),
      cabinets_(*AddComboBox(kTextScrapDialogLabel)) {
  ListCabinets();
  AddButtons(kSectionScrapDialog, kButtonScrapConfirm, kButtonScrapCancel);
}

void CRSS_ScrapDlg::ListCabinets() {
  std::vector<CabinetRow> cabinets;
  LoadCabinetList(desk_.GetStore(), cabinets);
  const CodePage codePage = desk_.GetStore().TextCodePage();
  for (const CabinetRow& cabinet : cabinets) {
    cabinets_.addItem(ToLine(codePage, cabinet.title), cabinet.id);
  }
  cabinets_.setCurrentIndex(cabinets.size() == 1 ? 0 : -1);
}

int CRSS_ScrapDlg::CabinetId() const { return cabinets_.currentData().toInt(); }

void CRSS_ScrapDlg::accept() {
  if (cabinets_.currentIndex() >= 0) return CVxFormDialog::accept();
  cabinets_.setFocus();
  desk_.ShowTextMessage(kSectionTexts, kTextScrapEmpty, MsgBoxKind::Notice);
}

}  // namespace feedloom
