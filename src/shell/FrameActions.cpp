#include "shell/FrameActions.h"

#include <QDesktopServices>

#include "shell/CRSS_MainFrame.h"
#include "skin/FilledTexts.h"
#include "skin/Keys.h"
#include "ui/dialogs/Dialogs.h"

namespace feedloom {
namespace {

void SetAskingActions(CRSS_MainFrame& frame, Actions& actions) {
  actions.askSearchWord = [&frame] { return AskSearchWord(frame, &frame); };
  actions.chooseCabinet = [&frame] { return ChooseCabinet(frame, &frame); };
  actions.askGroupName = [&frame](const auto& name) { return AskGroupName(frame, &frame, name); };
  actions.askChannelName = [&frame](const auto& channel) {
    return AskChannelName(frame, &frame, channel);
  };
  actions.askCabinetName = [&frame](const auto& title) {
    return AskCabinetName(frame, &frame, title);
  };
  actions.askDownloadPlace = [&frame](const QString& name, const QString& host) {
    return AskDownloadPlace(frame, &frame, name, host);
  };
  actions.askLogin = [&frame](const LoginQuestion& question) {
    return ShowLogin(frame, &frame, question);
  };
  actions.choosePrinter = [&frame](QPrinter& printer) { return ChoosePrinter(printer, &frame); };
}

void SetDialogActions(CRSS_MainFrame& frame, Actions& actions) {
  actions.addChannel = [&frame](const auto& folderName, const auto& address) {
    ShowChannelAdd(frame, &frame, folderName, address);
  };
  actions.addGroup = [&frame] { ShowGroupAdd(frame, &frame); };
  actions.addCabinet = [&frame] { ShowCabinetAdd(frame, &frame); };
  actions.moveChannel = [&frame](const auto& channel) { ShowChannelMove(frame, &frame, channel); };
  actions.showChannelInfo = [&frame](const auto& channel) {
    ShowChannelInfo(frame, &frame, channel);
  };
  actions.openDirectory = [&frame] { ShowDirectory(frame, &frame); };
  actions.openSettings = [&frame] { frame.OpenControlPanel(); };
  actions.notifyOfNewPosts = [&frame] { frame.NotifyOfNewPosts(); };
  actions.openOutside = QDesktopServices::openUrl;
}

}  // namespace

Actions MakeFrameActions(CRSS_MainFrame& frame) {
  Actions actions;
  SetAskingActions(frame, actions);
  SetDialogActions(frame, actions);
  return actions;
}

// A file dialog that is cancelled, or whose frame is deleted while it is open, gives an empty
// answer: the frame is not touched then.
void SetExchangeActions(CRSS_MainFrame& frame, Actions& actions) {
  actions.synchronise = [&frame] { ShowSync(frame, &frame); };
  actions.importFile = [&frame] {
    const std::string path = AskImportFile(frame, &frame);
    if (!path.empty()) frame.ImportOpml({.place = path});
  };
  actions.importAddress = [&frame] {
    if (const auto address = AskListAddress(frame, &frame)) {
      frame.ImportOpml({.place = *address, .isAddress = true});
    }
  };
  actions.exportOpml = [&frame](const std::string& fileName) {
    const std::string path = AskExportPlace(frame, &frame, fileName);
    const auto channels = path.empty() ? std::nullopt : frame.ExportOpml(path);
    if (!channels) return;
    frame.ReportMessage(
        WithNumbers(frame.GetSkin().GetText(kSectionTexts, kTextOpmlExported), {*channels}));
  };
}

}  // namespace feedloom
