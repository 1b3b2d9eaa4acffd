#pragma once

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;
struct ChannelFacts;

// Shows the title, the feed address and the folder of a channel.
class CRSS_ChannelInfoDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelFacts& channel);
};

}  // namespace feedloom
