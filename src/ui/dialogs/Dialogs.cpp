#include "ui/dialogs/Dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QStandardPaths>

#include "skin/Keys.h"
#include "ui/Frame.h"
#include "ui/dialogs/CRSS_ScrapDlg.h"
#include "ui/dialogs/CRSS_SearchDlg.h"
#include "vxctrl/SkinText.h"

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

QString AskDownloadPlace(Frame& frame, QWidget* parent, const QString& name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  const QPointer dialog(new QFileDialog(parent, SkinText(frame.TheSkin(), kTextDownloadPlace)));
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDirectory(QDir(folder).exists() ? folder : QDir::homePath());
  dialog->selectFile(name);
  const bool hasAnswer = dialog->exec() == QDialog::Accepted && dialog;
  const QString path = hasAnswer ? dialog->selectedFiles().value(0) : QString();
  delete dialog;
  return path;
}

bool ChoosePrinter(QPrinter& printer, QWidget* parent) {
  const QPointer dialog(new QPrintDialog(&printer, parent));
  const bool hasAnswer = dialog->exec() == QDialog::Accepted && dialog;
  delete dialog;
  return hasAnswer;
}

}  // namespace feedloom
