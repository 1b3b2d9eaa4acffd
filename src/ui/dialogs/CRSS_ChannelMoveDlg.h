#pragma once

#include "controls/CVxFormDialog.h"
#include "ui/ChannelDetails.h"

namespace feedloom {

class Desk;
class Subscribing;

// Moves a channel to another folder, in the store and in the tree.
class CRSS_ChannelMoveDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_ChannelMoveDlg(Desk& desk, Subscribing& subscribing, QWidget* parent,
                      ChannelDetails channel);

  void accept() override;

 private:
  // Fault validates the selected folder, Move stores it. Both return the text key of an error
  // message, null on success.
  const char* Fault();
  const char* Move(int folderId);

  Desk& desk_;
  Subscribing& subscribing_;
  const ChannelDetails channel_;
  CVxComboBox& folders_;
};

}  // namespace feedloom
