#pragma once

#include <string>

#include "controls/CVxFormDialog.h"

class QLabel;

namespace feedloom {

class Desk;
class Subscribing;

// Exchanges the list of channels with the connected handset (Subscribing::Synchronise). The dialog
// shows the numbers of sent and added channels and reports them to the host, also when the dialog
// was closed meanwhile. Without a handset, the dialog says so and can only be closed.
class CRSS_SyncDlg : public CVxFormDialog {
  Q_OBJECT

 public:
  CRSS_SyncDlg(Desk& desk, Subscribing& subscribing, QWidget* parent);

 private:
  void AddSynchronisation();
  void AddButtonRow();
  void Synchronise();
  void SetRunning(bool isRunning);
  void Say(const std::string& text);
  std::string Text(const char* key) const;

  Desk& desk_;
  Subscribing& subscribing_;
  CVxEdit& model_;
  // Both are null without a handset.
  QLabel* status_ = nullptr;
  CButtonEx* start_ = nullptr;
};

}  // namespace feedloom
