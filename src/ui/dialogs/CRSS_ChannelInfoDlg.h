#pragma once

#include <chrono>

#include "controls/CVxFormDialog.h"

namespace feedloom {

class Desk;
class CVxComboBox;
struct ChannelDetails;

// Shows the title, the feed address and the folder of a channel. In a host that wishes for helpful
// dialogs also how its last refresh ended, when it was tried last and when it succeeded last, and
// where the feed has gone for good. In one that keeps periods the user chooses how long the channel
// is left alone by a refresh that starts by itself.
class CRSS_ChannelInfoDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelInfoDlg(Desk& desk, QWidget* parent, const ChannelDetails& channel);

  // The period that is chosen now; 0 for that of the feed.
  std::chrono::minutes Period() const;

 private:
  void AddPeriods(const ChannelDetails& channel);
  void ShowVisit(Desk& desk, const ChannelDetails& channel);
  void Show(Desk& desk, const char* labelKey, const std::string& text);

  const std::chrono::minutes ownPeriod_;
  CVxComboBox* periods_ = nullptr;  // a child; none where the host does not keep periods
};

}  // namespace feedloom
