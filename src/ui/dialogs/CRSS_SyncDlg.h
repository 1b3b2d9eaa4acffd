#pragma once

#include <string>

#include "vxctrl/CVxFormDialog.h"

class QLabel;

namespace feedloom {

class Frame;

// Exchanges the list of channels with the connected handset, by files in the host's work directory:
// the user's list goes there, and what the handset has left there is added. The dialog says what
// came and went, and so does a status text for the host, also when the dialog was closed meanwhile.
// Without a handset it says so and can only be closed.
class CRSS_SyncDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_SyncDlg(Frame& frame, QWidget* parent);

 private:
  void AddSynchronisation();
  void AddButtonRow();
  void Synchronise();
  void SetRunning(bool isRunning);
  void Say(const std::string& text);
  std::string Text(const char* key) const;

  Frame& frame_;
  CVxEdit& model_;
  // Null without a handset.
  QLabel* status_ = nullptr;
  CButtonEx* start_ = nullptr;
};

}  // namespace feedloom
