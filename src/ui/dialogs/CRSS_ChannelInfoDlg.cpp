#include "ui/dialogs/CRSS_ChannelInfoDlg.h"

#include "controls/CButtonEx.h"
#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "ui/ChannelDetails.h"
#include "ui/Desk.h"

namespace feedloom {

CRSS_ChannelInfoDlg::CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelDetails& channel)
    : CVxFormDialog(desk.GetSkin(), kTextChannelInfoTitle, parent) {
  const auto show = [&](const char* labelKey, const std::string& text) {
    AddEdit(labelKey)->ShowOnly(ToQString(desk.GetStore().TextCodePage(), text));
  };
  show(kTextChannelInfoName, channel.title);
  show(kTextChannelInfoAddress, channel.xmlLink);
  show(kTextChannelInfoGroup, channel.folderName);
  AddButtons(kSectionChannelInfo, kButtonChannelInfoConfirm, nullptr)->setFocus();
}

}  // namespace feedloom
