#include "host/Autostart.h"

#include <fmt/core.h>

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include "files/Path.h"
#include "profile/Files.h"
#include "profile/Profile.h"

namespace feedloom {
namespace {

std::string Directory() {
  const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return JoinPath(QFile::encodeName(config).toStdString(), "autostart");
}

std::string EntryPath() { return JoinPath(Directory(), "halvix.desktop"); }

// An argument in the Exec key (Desktop Entry Specification): in quotes, where some signs have a
// backslash before them, which stands twice in a value; a "%" stands twice, too.
std::string Quoted(const std::string& argument) {
  std::string text = "\"";
  for (const char sign : argument) {
    if (sign == '\\') text += "\\\\\\";
    if (sign == '"' || sign == '`' || sign == '$') text += "\\\\";
    if (sign == '%') text += '%';
    text += sign;
  }
  return text + '"';
}

}  // namespace

bool StartsWithSession() { return IsRegularFile(EntryPath()); }

bool SetStartsWithSession(const std::string& profileDir, bool isOn) {
  if (!isOn) return QFile::remove(QFile::decodeName(EntryPath().c_str())) || !StartsWithSession();
  const std::string program =
      QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString();
  const std::string other = profileDir == DefaultProfileDir() ? "" : profileDir;
  return !MakeDirectories(Directory()) &&
         !WriteFileWhole(EntryPath(), AutostartEntry(program, other));
}

std::string AutostartEntry(const std::string& program, const std::string& profileDir) {
  const std::string profile = profileDir.empty() ? "" : " --profile " + Quoted(profileDir);
  return fmt::format(
      "[Desktop Entry]\nType=Application\nName=Feedloom\nIcon=halvix\n"
      "Exec={} --hidden{}\nTerminal=false\nX-KDE-autostart-after=panel\n",
      Quoted(program), profile);
}

}  // namespace feedloom
