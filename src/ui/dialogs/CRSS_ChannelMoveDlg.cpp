#include "ui/dialogs/CRSS_ChannelMoveDlg.h"

#include <utility>

#include "controls/CVxComboBox.h"
#include "skin/Keys.h"
#include "store/Channels.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"
#include "ui/dialogs/DialogRules.h"
#include "ui/dialogs/FolderList.h"

namespace feedloom {

CRSS_ChannelMoveDlg::CRSS_ChannelMoveDlg(Desk& desk, Subscribing& subscribing, QWidget* parent,
                                         ChannelDetails channel)
    : CVxFormDialog(desk.GetSkin(), TitleKey(desk.GetSkin(), kTextGroupDialogTitle, kTextMoveTitle),
                    parent),
      desk_(desk),
      subscribing_(subscribing),
      channel_(std::move(channel)),
      folders_(*AddComboBox(kTextGroupSelect)) {
  ListFolders(desk, folders_);
  AddButtons(kSectionMoveChannel, kButtonMoveChannelConfirm, kButtonMoveChannelCancel);
}

const char* CRSS_ChannelMoveDlg::Fault() {
  // Read again: the selected folder may have been deleted meanwhile.
  if (!ListFolders(desk_, folders_)) return kTextMoveError;
  return CheckFolder(ChosenFolder(folders_), [this](int folderId) {
    int id = 0;
    int order = 0;
    return FindChannelByXmlLink(desk_.GetStore(), channel_.xmlLink, folderId, id, order);
  });
}

void CRSS_ChannelMoveDlg::accept() {
  const char* fault = Fault();
  if (fault == nullptr) fault = Move(ChosenFolder(folders_));
  if (fault == nullptr) return CVxFormDialog::accept();
  folders_.setFocus();
  desk_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
}

const char* CRSS_ChannelMoveDlg::Move(int folderId) {
  if (!MoveChannel(desk_.GetStore(), channel_.id, folderId)) return kTextMoveError;
  subscribing_.ChannelWasMoved(channel_.id, folderId);
  return nullptr;
}

}  // namespace feedloom
