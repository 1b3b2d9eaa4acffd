#include "ui/dialogs/Dialogs.h"

#include <QPointer>
#include <QPrintDialog>

#include "controls/CMsgBox.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "skin/TextPlaceholders.h"
#include "store/Cabinets.h"
#include "store/SqlText.h"
#include "ui/ChannelDetails.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"
#include "ui/dialogs/CRSS_CabinetAddDlg.h"
#include "ui/dialogs/CRSS_ChannelAddDlg.h"
#include "ui/dialogs/CRSS_ChannelInfoDlg.h"
#include "ui/dialogs/CRSS_ChannelMoveDlg.h"
#include "ui/dialogs/CRSS_ChannelRenameDlg.h"
#include "ui/dialogs/CRSS_DirectoryDlg.h"
#include "ui/dialogs/CRSS_GroupAddDlg.h"
#include "ui/dialogs/CRSS_GroupRenameDlg.h"
#include "ui/dialogs/CRSS_LoginDlg.h"
#include "ui/dialogs/CRSS_MergeDlg.h"
#include "ui/dialogs/CRSS_OpmlDlg.h"
#include "ui/dialogs/CRSS_ScrapDlg.h"
#include "ui/dialogs/CRSS_SearchDlg.h"
#include "ui/dialogs/CRSS_SyncDlg.h"
#include "ui/dialogs/LeftOutText.h"

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

std::optional<std::string> AskSearchWord(Desk& desk, QWidget* parent) {
  auto* dialog = new CRSS_SearchDlg(desk, parent);
  std::optional<std::string> word;
  RunDialog(dialog, [&] { word = dialog->Word(); });
  return word;
}

std::optional<Login> ShowLogin(Desk& desk, QWidget* parent, const LoginQuestion& question) {
  auto* dialog = new CRSS_LoginDlg(desk.GetSkin(), parent, question);
  std::optional<Login> login;
  RunDialog(dialog, [&] { login = dialog->Entered(); });
  return login;
}

std::optional<int> ChooseCabinet(Desk& desk, QWidget* parent) {
  auto* dialog = new CRSS_ScrapDlg(desk, parent);
  std::optional<int> cabinetId;
  RunDialog(dialog, [&] { cabinetId = dialog->CabinetId(); });
  return cabinetId;
}

std::optional<std::string> AskGroupName(Desk& desk, QWidget* parent, const std::string& name) {
  return AskName(new CRSS_GroupRenameDlg(desk, parent, name));
}

std::optional<std::string> AskChannelName(Desk& desk, QWidget* parent,
                                          const ChannelDetails& channel) {
  return AskName(new CRSS_ChannelRenameDlg(desk, parent, CRSS_ChannelRenameDlg::Mode::Channel,
                                           channel.title, channel.folderId));
}

std::optional<std::string> AskCabinetName(Desk& desk, QWidget* parent, const std::string& title) {
  return AskName(
      new CRSS_ChannelRenameDlg(desk, parent, CRSS_ChannelRenameDlg::Mode::Cabinet, title));
}

void ShowChannelAdd(Desk& desk, Refreshing& refreshing, Subscribing& subscribing, QWidget* parent,
                    int folderId, const std::string& address) {
  Show(new CRSS_ChannelAddDlg(desk, refreshing, subscribing, parent, folderId, address));
}

void ShowGroupAdd(Desk& desk, Subscribing& subscribing, QWidget* parent) {
  Show(new CRSS_GroupAddDlg(desk, subscribing, parent));
}

void ShowCabinetAdd(Desk& desk, Subscribing& subscribing, QWidget* parent) {
  const auto title = AskName(new CRSS_CabinetAddDlg(desk, parent));
  if (!title) return;
  const CabinetRow cabinet = AppendCabinet(desk.GetStore(), *title);
  if (cabinet.id > 0) return subscribing.CabinetWasAdded(cabinet);
  desk.ShowTextMessage(kSectionTexts, cabinet.id == 0 ? kTextCabinetDuplicate : kTextCabinetError,
                       MsgBoxKind::Notice);
}

void ShowChannelMove(Desk& desk, Subscribing& subscribing, QWidget* parent,
                     const ChannelDetails& channel) {
  Show(new CRSS_ChannelMoveDlg(desk, subscribing, parent, channel));
}

std::optional<std::chrono::minutes> ShowChannelInfo(Desk& desk, QWidget* parent,
                                                    const ChannelDetails& channel) {
  auto* dialog = new CRSS_ChannelInfoDlg(desk, parent, channel);
  std::optional<std::chrono::minutes> period;
  RunDialog(dialog, [&] { period = dialog->Period(); });
  return period == channel.ownPeriod ? std::nullopt : period;
}

std::optional<std::string> AskListAddress(Desk& desk, QWidget* parent) {
  auto* dialog = new CRSS_OpmlDlg(desk, parent);
  std::optional<std::string> address;
  RunDialog(dialog, [&] { address = dialog->Address(); });
  return address;
}

void ImportFile(Desk& desk, Subscribing& subscribing, QWidget* parent) {
  const std::string path = AskImportFile(desk, parent);
  if (!path.empty()) subscribing.ImportOpml({.place = path});
}

void ImportAddress(Desk& desk, Subscribing& subscribing, QWidget* parent) {
  const auto address = AskListAddress(desk, parent);
  if (address) subscribing.ImportOpml({.place = *address, .isAddress = true});
}

void ExportFile(Desk& desk, Subscribing& subscribing, QWidget* parent, const std::string& name) {
  const std::string path = AskExportPlace(desk, parent, name);
  const auto channels = path.empty() ? std::nullopt : subscribing.ExportOpml(path);
  if (!channels) return;
  desk.ReportMessage(
      WithNumbers(desk.GetSkin().GetText(kSectionTexts, kTextOpmlExported), {*channels}));
}

bool AskToImport(Desk& desk, QWidget* parent, const std::string& name, int channels) {
  const CodePage codePage = desk.GetStore().TextCodePage();
  const std::string question = WithLineBreaks(GetLabel(desk.GetSkin(), kLabelImportQuestion));
  const std::string text = WithTitle(WithNumbers(question, {channels}), codePage.FromUtf8(name));
  return ShowMsgBox(desk.GetSkin(), ToQString(codePage, text), MsgBoxKind::YesNo, parent) ==
         MsgBoxAnswer::Consented;
}

std::optional<NameClash> AskHowToImport(Desk& desk, QWidget* parent, int channels, int present) {
  const std::string question = desk.GetSkin().GetText(kSectionTexts, kTextOpmlPresent);
  if (question.empty()) return NameClash::Merge;
  auto* dialog =
      new CRSS_MergeDlg(desk.GetSkin(), WithNumbers(question, {channels, present}), parent);
  std::optional<NameClash> answer;
  RunDialog(dialog, [&] { answer = dialog->Chosen(); });
  return answer;
}

void ShowLeftOut(Desk& desk, QWidget* parent, const ImportSums& sums) {
  const Skin& skin = desk.GetSkin();
  const std::string text = LeftOutText(skin, sums);
  if (text.empty()) return;
  ShowMsgBox(skin, ToQString(skin.Config().GetCodePage(), text), MsgBoxKind::Notice, parent);
}

void ShowSync(Desk& desk, Subscribing& subscribing, QWidget* parent) {
  Show(new CRSS_SyncDlg(desk, subscribing, parent));
}

void ShowDirectory(Desk& desk, Subscribing& subscribing, QWidget* parent) {
  Show(new CRSS_DirectoryDlg(desk, subscribing, parent));
}

bool ChoosePrinter(QPrinter& printer, QWidget* parent) {
  const QPointer dialog(new QPrintDialog(&printer, parent));
  const bool hasAnswer = dialog->exec() == QDialog::Accepted && dialog;
  delete dialog;
  return hasAnswer;
}

}  // namespace feedloom
