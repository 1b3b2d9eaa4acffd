#include "ui/dialogs/CRSS_ChannelMoveDlg.h"

#include <utility>

#include "skin/Keys.h"
#include "store/Channels.h"
#include "ui/Frame.h"
#include "ui/dialogs/DialogRules.h"
#include "ui/dialogs/FolderList.h"
#include "vxctrl/CVxComboBox.h"

namespace feedloom {

CRSS_ChannelMoveDlg::CRSS_ChannelMoveDlg(Frame& frame, QWidget* parent, ChannelFacts channel)
    : CVxFormDialog(frame.GetSkin(), kTextGroupDialogTitle, parent),
      frame_(frame),
      channel_(std::move(channel)),
      folders_(*AddComboBox(kTextGroupSelect)) {
  ListFolders(frame, folders_);
  AddButtons(kSectionMoveChannel, kButtonMoveChannelConfirm, kButtonMoveChannelCancel);
}

const char* CRSS_ChannelMoveDlg::Fault() {
  // Read again: the selected folder may have been deleted meanwhile.
  if (!ListFolders(frame_, folders_)) return kTextMoveError;
  return CheckFolder(ChosenFolder(folders_), [this](int folderId) {
    int id = 0;
    int order = 0;
    return FindChannelByXmlLink(frame_.GetStore(), channel_.xmlLink, folderId, id, order);
  });
}

void CRSS_ChannelMoveDlg::accept() {
  const char* fault = Fault();
  if (fault == nullptr) fault = Move(ChosenFolder(folders_));
  if (fault == nullptr) return CVxFormDialog::accept();
  folders_.setFocus();
  frame_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
}

const char* CRSS_ChannelMoveDlg::Move(int folderId) {
  if (!MoveChannel(frame_.GetStore(), channel_.id, folderId)) return kTextMoveError;
  frame_.ChannelWasMoved(channel_.id, folderId);
  return nullptr;
}

}  // namespace feedloom
