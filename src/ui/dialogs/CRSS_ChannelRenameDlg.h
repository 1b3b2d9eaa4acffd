#pragma once

#include "ui/dialogs/NameDialog.h"

namespace feedloom {

// Asks for the new name of a channel or a cabinet, which the caller stores.
class CRSS_ChannelRenameDlg : public NameDialog {
  Q_OBJECT

 public:
  enum class Mode { Channel, Cabinet };

  // `name` is the old name. `folderId` is the channel's folder, in which the new name must be
  // unique; cabinets do not use it.
  CRSS_ChannelRenameDlg(Desk& desk, QWidget* parent, Mode mode, const std::string& name,
                        int folderId = 0);

 protected:
  bool IsTaken(const std::string& name) const override;

 private:
  const Mode mode_;
  const int folderId_;
};

}  // namespace feedloom
