#include "host/AboutBox.h"

#include <dlfcn.h>

#include <QAbstractButton>
#include <QDesktopServices>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include "host/HostTables.h"
#include "profile/ProfileDatabase.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

// What this function of the browser engine returns. The program is not linked with the engine: the
// module has loaded it.
QString EngineSays(const char* function) {
  void* const engine = dlopen("libQt6WebEngineCore.so.6", RTLD_LAZY | RTLD_NOLOAD);
  if (engine == nullptr) return "?";
  const auto tell = reinterpret_cast<const char* (*)()>(dlsym(engine, function));
  const QString told = tell == nullptr ? "?" : tell();
  dlclose(engine);  // the module keeps it
  return told;
}

}  // namespace

void ShowAbout(QWidget& window, const ProfilePaths& paths) {
  const QString profile = QFile::decodeName(paths.dir.c_str());
  const QString text = HostText(kHostTextAbout)
                           .arg(FEEDLOOM_VERSION, qVersion(), EngineSays("_Z17qWebEngineVersionv"),
                                EngineSays("_Z25qWebEngineChromiumVersionv"),
                                QString::fromStdString(DatabaseVersion()), profile);
  QMessageBox box(QMessageBox::Information, "Feedloom", text, QMessageBox::Close, &window);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  const QIcon icon = window.windowIcon();
  if (!icon.isNull()) box.setIconPixmap(icon.pixmap(64));
  const QAbstractButton* const open =
      box.addButton(HostText(kHostTextAboutOpen), QMessageBox::ActionRole);
  box.setDefaultButton(QMessageBox::Close);
  box.exec();
  if (box.clickedButton() == open) QDesktopServices::openUrl(QUrl::fromLocalFile(profile));
}

}  // namespace feedloom
