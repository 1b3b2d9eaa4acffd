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
  return FolderNameExists(TheFrame().TheStore(), name);
}

const char* CRSS_GroupAddDlg::Keep(const std::string& name) {
  Store& store = TheFrame().TheStore();
  const int highest = GetMaxOrder(store, true, 0);
  // After a failure there is no order to give: a negative one would protect the folder.
  const int order = highest + 1;
  folderId_ = order >= 0 ? AddFolder(store, name, order) : -1;
  if (folderId_ == 0) return kTextGroupDuplicate;  // another program was faster
  if (folderId_ < 0) return kTextGroupError;
  TheFrame().FolderWasAdded({.name = UnescapeEntities(name), .id = folderId_, .order = order});
  return nullptr;
}

}  // namespace feedloom
