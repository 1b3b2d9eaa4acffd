#include "ui/dialogs/CRSS_GroupAddDlg.h"

#include "skin/Keys.h"
#include "store/Folders.h"
#include "store/SqlText.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"
#include "ui/dialogs/DialogRules.h"

namespace feedloom {
namespace {

NameDialogLook LookOf(const Skin& skin) {
  return {TitleKey(skin, kTextGroupDialogTitle, kTextAddGroupTitle), kTextGroupDialogName,
          kSectionAddGroup, kButtonAddGroupConfirm, kButtonAddGroupCancel};
}

}  // namespace

CRSS_GroupAddDlg::CRSS_GroupAddDlg(Desk& desk, Subscribing& subscribing, QWidget* parent)
    : NameDialog(desk, parent, LookOf(desk.GetSkin()), kGroupNameRule, {}),
      subscribing_(subscribing) {}

bool CRSS_GroupAddDlg::IsTaken(const std::string& name) const {
  return FolderNameExists(GetDesk().GetStore(), name);
}

const char* CRSS_GroupAddDlg::Keep(const std::string& name) {
  int order = 0;
  folderId_ = AppendFolder(GetDesk().GetStore(), name, order);
  if (folderId_ == 0) return kTextGroupDuplicate;  // by another program
  if (folderId_ < 0) return kTextGroupError;
  subscribing_.FolderWasAdded({.name = UnescapeEntities(name), .id = folderId_, .order = order});
  return nullptr;
}

}  // namespace feedloom
