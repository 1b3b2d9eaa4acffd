#include "ui/browser/BrowserServices.h"

#include <QDesktopServices>

#include "files/Registry.h"
#include "skin/Keys.h"
#include "ui/dialogs/Dialogs.h"

namespace feedloom {

BrowserServices MakeBrowserServices(Desk& desk, const Registry& registry, QWidget* parent) {
  return {.showsRemoteImages =
              [&registry] {
                return registry.ReadDword(kModuleKey, kValueBlockRemoteImages).value_or(0) == 0;
              },
          .chooseCabinet = [&desk, parent] { return ChooseCabinet(desk, parent); },
          .askSavePath = [&desk, parent](
                             const QString& name,
                             const QString& host) { return AskSavePath(desk, parent, name, host); },
          .askLogin = [&desk,
                       parent](const auto& question) { return ShowLogin(desk, parent, question); },
          .choosePrinter = [parent](QPrinter& printer) { return ChoosePrinter(printer, parent); },
          .openExternally = QDesktopServices::openUrl};
}

}  // namespace feedloom
