#include "ui/dialogs/CRSS_CabinetAddDlg.h"

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "ui/Frame.h"

namespace feedloom {
namespace {

constexpr NameDialogLook kLook{kTextCabinetDialogTitle, kTextCabinetDialogName, kSectionAddCabinet,
                               kButtonAddCabinetConfirm, kButtonAddCabinetCancel};

}  // namespace

CRSS_CabinetAddDlg::CRSS_CabinetAddDlg(Frame& frame, QWidget* parent)
    : NameDialog(frame, parent, kLook, kCabinetNameRule, {}) {}

bool CRSS_CabinetAddDlg::IsTaken(const std::string& name) const {
  return CabinetTitleExists(GetFrame().GetStore(), name);
}

}  // namespace feedloom
