#pragma once

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;
struct ChannelDetails;

// Shows the title, the feed address and the folder of a channel.
class CRSS_ChannelInfoDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelDetails& channel);
};

}  // namespace feedloom
