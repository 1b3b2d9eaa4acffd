#pragma once

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;
struct ChannelDetails;

// Shows the title, the feed address and the folder of a channel. In a host that wishes for helpful
// dialogs also how its last refresh ended, when it was tried last and when it succeeded last, and
// where the feed has gone for good.
class CRSS_ChannelInfoDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelDetails& channel);

 private:
  void ShowVisit(Desk& desk, const ChannelDetails& channel);
  void Show(Desk& desk, const char* labelKey, const std::string& text);
};

}  // namespace feedloom
