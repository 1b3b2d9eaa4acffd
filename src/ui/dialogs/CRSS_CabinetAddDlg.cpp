#include "ui/dialogs/CRSS_CabinetAddDlg.h"

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "ui/Desk.h"

namespace feedloom {
namespace {

constexpr NameDialogLook kLook{kTextCabinetDialogTitle, kTextCabinetDialogName, kSectionAddCabinet,
                               kButtonAddCabinetConfirm, kButtonAddCabinetCancel};

}  // namespace

CRSS_CabinetAddDlg::CRSS_CabinetAddDlg(Desk& desk, QWidget* parent)
    : NameDialog(desk, parent, kLook, kCabinetNameRule, {}) {}

bool CRSS_CabinetAddDlg::IsTaken(const std::string& name) const {
  return CabinetTitleExists(GetDesk().GetStore(), name);
}

}  // namespace feedloom
