#pragma once

#include "ui/dialogs/NameDialog.h"

namespace feedloom {

class Subscribing;

// Adds a folder to the store and the tree.
class CRSS_GroupAddDlg : public NameDialog {
  Q_OBJECT

 public:
  CRSS_GroupAddDlg(Desk& desk, Subscribing& subscribing, QWidget* parent);

  // The id of the new folder; 0 before it is added.
  int FolderId() const { return folderId_; }

 protected:
  bool IsTaken(const std::string& name) const override;
  const char* Keep(const std::string& name) override;

 private:
  Subscribing& subscribing_;
  int folderId_ = 0;
};

}  // namespace feedloom
