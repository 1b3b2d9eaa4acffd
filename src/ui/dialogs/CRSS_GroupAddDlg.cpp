#include "ui/dialogs/CRSS_GroupAddDlg.h"

#include "skin/Keys.h"
#include "store/Folders.h"
#include "store/SqlText.h"
#include "ui/Frame.h"

namespace feedloom {
namespace {

constexpr NameDialogLook kLook{kTextGroupDialogTitle, kTextGroupDialogName, kSectionAddGroup,
                               kButtonAddGroupConfirm, kButtonAddGroupCancel};

}  // namespace

CRSS_GroupAddDlg::CRSS_GroupAddDlg(Frame& frame, QWidget* parent)
    : NameDialog(frame, parent, kLook, kGroupNameRule, {}) {}

bool CRSS_GroupAddDlg::IsTaken(const std::string& name) const {
  return FolderNameExists(GetFrame().GetStore(), name);
}

const char* CRSS_GroupAddDlg::Keep(const std::string& name) {
  int order = 0;
  folderId_ = AppendFolder(GetFrame().GetStore(), name, order);
  if (folderId_ == 0) return kTextGroupDuplicate;  // by another program
  if (folderId_ < 0) return kTextGroupError;
  GetFrame().FolderWasAdded({.name = UnescapeEntities(name), .id = folderId_, .order = order});
  return nullptr;
}

}  // namespace feedloom
