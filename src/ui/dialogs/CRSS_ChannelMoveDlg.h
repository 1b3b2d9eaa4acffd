#pragma once

#include "ui/Actions.h"
#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;

// Moves a channel to another folder, in the store and in the tree.
class CRSS_ChannelMoveDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelMoveDlg(Frame& frame, QWidget* parent, ChannelFacts channel);

  void accept() override;

 private:
  // Both: the key of the message that says what is wrong, null when nothing is.
  const char* Fault();
  const char* Move(int folderId);

  Frame& frame_;
  const ChannelFacts channel_;
  CVxComboBox& folders_;
};

}  // namespace feedloom
