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
    : CVxFormDialog(frame.TheSkin(), kTextGroupDialogTitle, parent),
      frame_(frame),
      channel_(std::move(channel)),
      folders_(*AddComboBox(kTextGroupSelect)) {
  ListFolders(frame, folders_);
  AddButtons(kSectionMoveChannel, kButtonMoveChannelConfirm, kButtonMoveChannelCancel);
}

void CRSS_ChannelMoveDlg::accept() {
  ListFolders(frame_, folders_);  // the chosen one may have been deleted meanwhile
  const int folderId = ChosenFolder(folders_);
  const char* fault = CheckFolder(folderId, [this](int candidate) {
    int id = 0;
    int order = 0;
    return FindChannelByXmlLink(frame_.TheStore(), channel_.xmlLink, candidate, id, order);
  });
  if (fault == nullptr) fault = Move(folderId);
  if (fault == nullptr) return CVxFormDialog::accept();
  folders_.setFocus();
  frame_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
}

const char* CRSS_ChannelMoveDlg::Move(int folderId) {
  if (!MoveChannel(frame_.TheStore(), channel_.id, folderId)) return kTextMoveError;
  frame_.ChannelWasMoved(channel_.id, folderId);
  return nullptr;
}

}  // namespace feedloom
