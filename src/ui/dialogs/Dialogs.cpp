#include "ui/dialogs/Dialogs.h"

#include <QPointer>
#include <QPrintDialog>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/SqlText.h"
#include "ui/Frame.h"
#include "ui/dialogs/CRSS_CabinetAddDlg.h"
#include "ui/dialogs/CRSS_ChannelAddDlg.h"
#include "ui/dialogs/CRSS_ChannelInfoDlg.h"
#include "ui/dialogs/CRSS_ChannelMoveDlg.h"
#include "ui/dialogs/CRSS_ChannelRenameDlg.h"
#include "ui/dialogs/CRSS_DirectoryDlg.h"
#include "ui/dialogs/CRSS_GroupAddDlg.h"
#include "ui/dialogs/CRSS_GroupRenameDlg.h"
#include "ui/dialogs/CRSS_LoginDlg.h"
#include "ui/dialogs/CRSS_OpmlDlg.h"
#include "ui/dialogs/CRSS_ScrapDlg.h"
#include "ui/dialogs/CRSS_SearchDlg.h"
#include "ui/dialogs/CRSS_SyncDlg.h"

namespace feedloom {

namespace {

std::optional<std::string> AskName(NameDialog* dialog) {
  std::optional<std::string> name;
  RunDialog(dialog, [&] { name = dialog->Name(); });
  return name;
}

void Show(CVxDialog* dialog) {
  RunDialog(dialog, [] {});
}

// Adds a cabinet after all others. Its id is 0 when the title is in use, -1 after a failure.
CabinetRow AppendCabinet(Store& store, const std::string& title) {
  CabinetRow added{.id = -1, .title = UnescapeEntities(title)};
  std::vector<CabinetRow> cabinets;
  if (!LoadCabinetList(store, cabinets)) return added;
  added.order = cabinets.empty() ? 1 : cabinets.back().order + 1;
  added.id = AddCabinet(store, title, added.order);
  return added;
}

}  // namespace

std::optional<std::string> AskSearchWord(Frame& frame, QWidget* parent) {
  auto* dialog = new CRSS_SearchDlg(frame, parent);
  std::optional<std::string> word;
  RunDialog(dialog, [&] { word = dialog->Word(); });
  return word;
}

std::optional<Login> ShowLogin(Frame& frame, QWidget* parent, const LoginQuestion& question) {
  auto* dialog = new CRSS_LoginDlg(frame.GetSkin(), parent, question);
  std::optional<Login> login;
  RunDialog(dialog, [&] { login = dialog->Entered(); });
  return login;
}

std::optional<int> ChooseCabinet(Frame& frame, QWidget* parent) {
  auto* dialog = new CRSS_ScrapDlg(frame, parent);
  std::optional<int> cabinetId;
  RunDialog(dialog, [&] { cabinetId = dialog->CabinetId(); });
  return cabinetId;
}

std::optional<std::string> AskGroupName(Frame& frame, QWidget* parent, const std::string& name) {
  return AskName(new CRSS_GroupRenameDlg(frame, parent, name));
}

std::optional<std::string> AskChannelName(Frame& frame, QWidget* parent,
                                          const ChannelFacts& channel) {
  return AskName(new CRSS_ChannelRenameDlg(frame, parent, CRSS_ChannelRenameDlg::Mode::Channel,
                                           channel.title, channel.folderId));
}

std::optional<std::string> AskCabinetName(Frame& frame, QWidget* parent, const std::string& title) {
  return AskName(
      new CRSS_ChannelRenameDlg(frame, parent, CRSS_ChannelRenameDlg::Mode::Cabinet, title));
}

void ShowChannelAdd(Frame& frame, QWidget* parent, const std::string& folderName,
                    const std::string& address) {
  Show(new CRSS_ChannelAddDlg(frame, parent, folderName, address));
}

void ShowGroupAdd(Frame& frame, QWidget* parent) { Show(new CRSS_GroupAddDlg(frame, parent)); }

void ShowCabinetAdd(Frame& frame, QWidget* parent) {
  const auto title = AskName(new CRSS_CabinetAddDlg(frame, parent));
  if (!title) return;
  const CabinetRow cabinet = AppendCabinet(frame.GetStore(), *title);
  if (cabinet.id > 0) return frame.CabinetWasAdded(cabinet);
  frame.ShowTextMessage(kSectionTexts, cabinet.id == 0 ? kTextCabinetDuplicate : kTextCabinetError,
                        MsgBoxKind::Notice);
}

void ShowChannelMove(Frame& frame, QWidget* parent, const ChannelFacts& channel) {
  Show(new CRSS_ChannelMoveDlg(frame, parent, channel));
}

void ShowChannelInfo(Frame& frame, QWidget* parent, const ChannelFacts& channel) {
  Show(new CRSS_ChannelInfoDlg(frame, parent, channel));
}

std::optional<std::string> AskListAddress(Frame& frame, QWidget* parent) {
  auto* dialog = new CRSS_OpmlDlg(frame, parent);
  std::optional<std::string> address;
  RunDialog(dialog, [&] { address = dialog->Address(); });
  return address;
}

void ShowSync(Frame& frame, QWidget* parent) { Show(new CRSS_SyncDlg(frame, parent)); }

void ShowDirectory(Frame& frame, QWidget* parent) { Show(new CRSS_DirectoryDlg(frame, parent)); }

bool ChoosePrinter(QPrinter& printer, QWidget* parent) {
  const QPointer dialog(new QPrintDialog(&printer, parent));
  const bool hasAnswer = dialog->exec() == QDialog::Accepted && dialog;
  delete dialog;
  return hasAnswer;
}

}  // namespace feedloom
