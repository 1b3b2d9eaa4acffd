#pragma once

#include "vxctrl/CVxFormDialog.h"

namespace feedloom {

class Frame;
struct ChannelFacts;

// Shows what a channel is called, where its feed comes from and which folder it is in.
class CRSS_ChannelInfoDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelInfoDlg(Frame& frame, QWidget* parent, const ChannelFacts& channel);
};

}  // namespace feedloom
