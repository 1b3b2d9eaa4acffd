#include "ui/dialogs/Dialogs.h"

#include "ui/dialogs/CRSS_ScrapDlg.h"
#include "ui/dialogs/CRSS_SearchDlg.h"

namespace feedloom {

std::optional<std::string> AskSearchWord(Frame& frame, QWidget* parent) {
  auto* dialog = new CRSS_SearchDlg(frame, parent);
  std::optional<std::string> word;
  RunDialog(dialog, [&] { word = dialog->Word(); });
  return word;
}

std::optional<int> ChooseCabinet(Frame& frame, QWidget* parent) {
  auto* dialog = new CRSS_ScrapDlg(frame, parent);
  std::optional<int> cabinetId;
  RunDialog(dialog, [&] { cabinetId = dialog->CabinetId(); });
  return cabinetId;
}

}  // namespace feedloom
