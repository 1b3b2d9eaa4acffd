#include "ui/dialogs/CRSS_GroupRenameDlg.h"

#include "skin/Keys.h"
#include "store/Folders.h"
#include "ui/Desk.h"

namespace feedloom {
namespace {

constexpr NameDialogLook kRenameLook{kTextRenameGroupTitle, kTextRenameGroupName,
                                     kSectionRenameGroup, kButtonRenameGroupConfirm,
                                     kButtonRenameGroupCancel};

}  // namespace

CRSS_GroupRenameDlg::CRSS_GroupRenameDlg(Desk& desk, QWidget* parent, const std::string& name)
    : NameDialog(desk, parent, kRenameLook, kGroupNameRule, name) {}

bool CRSS_GroupRenameDlg::IsTaken(const std::string& name) const {
  return FolderNameExists(GetDesk().GetStore(), name);
}

}  // namespace feedloom
