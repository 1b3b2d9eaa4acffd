#include "ui/dialogs/CRSS_ChannelRenameDlg.h"

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "ui/Desk.h"

namespace feedloom {
namespace {

constexpr NameDialogLook kChannelLook{kTextRenameChannelTitle, kTextRenameChannelName,
                                      kSectionRenameChannel, kButtonRenameChannelConfirm,
                                      kButtonRenameChannelCancel};
constexpr NameDialogLook kCabinetLook{kTextRenameCabinetTitle, kTextRenameCabinetName,
                                      kSectionRenameChannel, kButtonRenameChannelConfirm,
                                      kButtonRenameChannelCancel};

}  // namespace

CRSS_ChannelRenameDlg::CRSS_ChannelRenameDlg(Desk& desk, QWidget* parent, Mode mode,
                                             const std::string& name, int folderId)
    : NameDialog(desk, parent, mode == Mode::Channel ? kChannelLook : kCabinetLook,
                 mode == Mode::Channel ? kChannelRenameRule : kCabinetRenameRule, name),
      mode_(mode),
      folderId_(folderId) {}

bool CRSS_ChannelRenameDlg::IsTaken(const std::string& name) const {
  Store& store = GetDesk().GetStore();
  return mode_ == Mode::Channel ? ChannelTitleExists(store, name, folderId_)
                                : CabinetTitleExists(store, name);
}

}  // namespace feedloom
