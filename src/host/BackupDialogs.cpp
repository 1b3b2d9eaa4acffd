#include "host/BackupDialogs.h"

#include <QDate>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "profile/ProfileBackup.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

// The path that the user has chosen; empty when he has not.
std::string ChooseFile(HostWindow& window, QFileDialog::AcceptMode mode) {
  QFileDialog dialog(&window, HostText(kHostTextBackupFiles),
                     QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.setAcceptMode(mode);
  const bool isSaved = mode == QFileDialog::AcceptSave;
  dialog.setFileMode(isSaved ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setNameFilters({HostText(kHostTextBackupFiles) + " (*.db)", "* (*)"});
  if (isSaved) {
    dialog.setDefaultSuffix("db");
    dialog.selectFile("feedloom-" + QDate::currentDate().toString(Qt::ISODate) + ".db");
  }
  if (dialog.exec() != QDialog::Accepted) return {};
  return QFile::encodeName(dialog.selectedFiles().value(0)).toStdString();
}

// The safe answer is the one that the Enter key gives.
bool Consents(HostWindow& window, const char* questionKey) {
  QMessageBox box(QMessageBox::Question, window.Caption(), HostText(questionKey),
                  QMessageBox::Yes | QMessageBox::No, &window);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

// Tells a failure. Returns whether there was none.
bool Succeeded(HostWindow& window, const Failure& failure) {
  if (!failure) return true;
  QMessageBox box(QMessageBox::Warning, window.Caption(), QString::fromStdString(*failure),
                  QMessageBox::Ok, &window);
  box.setTextFormat(Qt::PlainText);
  box.exec();
  return false;
}

}  // namespace

void BackUp(HostWindow& window, const ProfilePaths& paths) {
  const std::string file = ChooseFile(window, QFileDialog::AcceptSave);
  if (file.empty()) return;
  const bool withLogins = HasLogins(paths) && Consents(window, kHostTextBackupLogins);
  const auto logins = withLogins ? BackedUpLogins::Included : BackedUpLogins::LeftOut;
  if (!Succeeded(window, BackUpProfile(paths, file, logins))) return;
  window.ShowText(HostText(kHostTextBackupDone).arg(QFile::decodeName(file.c_str())));
}

void Restore(HostWindow& window, const ProfilePaths& paths, const std::function<void()>& restart) {
  const std::string file = ChooseFile(window, QFileDialog::AcceptOpen);
  if (file.empty() || !Consents(window, kHostTextRestoreQuestion)) return;
  if (Succeeded(window, TakeBackup(paths, file))) restart();
}

}  // namespace feedloom
