// The functions of Dialogs.h that ask for a file.
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QPointer>
#include <QStandardPaths>
#include <functional>

#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/Desk.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/dialogs/NameFilters.h"

namespace feedloom {
namespace {

constexpr char kKindsToImport[] = "OPML File (*.xml;*.opml)|*.xml;*.opml|";
constexpr char kKindsToExport[] = "OPML file (*.xml;*.opml)|*.xml;*.opml|All file (*.*)|*.*|";
constexpr char kExportSuffix[] = "xml";

// Shows a file dialog and returns the chosen path, empty when the user cancels. The dialog starts
// in the user's folder for `location` when it exists, else in the home directory. `prepare`
// configures the dialog.
QString AskFile(QWidget* parent, const QString& title, QStandardPaths::StandardLocation location,
                const std::function<void(QFileDialog& dialog)>& prepare) {
  const QString folder = QStandardPaths::writableLocation(location);
  const QPointer dialog(new QFileDialog(parent, title));
  dialog->setDirectory(QDir(folder).exists() ? folder : QDir::homePath());
  prepare(*dialog);
  const bool hasAnswer = dialog->exec() == QDialog::Accepted && dialog;
  const QString path = hasAnswer ? dialog->selectedFiles().value(0) : QString();
  delete dialog;
  return path;
}

}  // namespace

QString AskSavePath(Desk& desk, QWidget* parent, const QString& name, const QString& host) {
  const QString from = SkinText(desk.GetSkin(), kTextDownloadFrom).replace("%s", host);
  return AskFile(parent, host.isEmpty() ? SkinText(desk.GetSkin(), kTextDownloadPlace) : from,
                 QStandardPaths::DownloadLocation, [&](QFileDialog& dialog) {
                   dialog.setAcceptMode(QFileDialog::AcceptSave);
                   dialog.selectFile(name);
                 });
}

std::string AskImportFile(Desk& desk, QWidget* parent) {
  const QString path = AskFile(parent, SkinText(desk.GetSkin(), kTextOpmlImportPlace),
                               QStandardPaths::DocumentsLocation, [](QFileDialog& dialog) {
                                 dialog.setFileMode(QFileDialog::ExistingFile);
                                 dialog.setNameFilters(NameFilters(kKindsToImport));
                               });
  return QFile::encodeName(path).toStdString();
}

std::string AskExportPlace(Desk& desk, QWidget* parent, const std::string& name) {
  const QString path =
      AskFile(parent, SkinText(desk.GetSkin(), kTextOpmlExportPlace),
              QStandardPaths::DocumentsLocation, [&](QFileDialog& dialog) {
                dialog.setAcceptMode(QFileDialog::AcceptSave);
                dialog.setNameFilters(NameFilters(kKindsToExport));
                dialog.setDefaultSuffix(kExportSuffix);
                dialog.selectFile(ToQString(desk.GetSkin().Config().GetCodePage(), name));
              });
  return QFile::encodeName(path).toStdString();
}

}  // namespace feedloom
