#include "ui/dialogs/CRSS_GroupRenameDlg.h"

#include "skin/Keys.h"
#include "store/Folders.h"
#include "ui/Frame.h"

namespace feedloom {
namespace {

constexpr NameDialogLook kLook{kTextRenameGroupTitle, kTextRenameGroupName, kSectionRenameGroup,
                               kButtonRenameGroupConfirm, kButtonRenameGroupCancel};

}  // namespace

CRSS_GroupRenameDlg::CRSS_GroupRenameDlg(Frame& frame, QWidget* parent, const std::string& name)
    : NameDialog(frame, parent, kLook, kGroupNameRule, name) {}

bool CRSS_GroupRenameDlg::IsTaken(const std::string& name) const {
  return FolderNameExists(GetFrame().GetStore(), name);
}

}  // namespace feedloom
