#include "host/OlderModeNotice.h"

#include <QMessageBox>

#include "files/Registry.h"
#include "host/HostProfile.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "profile/WriteAhead.h"
#include "skin/Keys.h"

namespace feedloom {

// The status bar would say something else at once: what is said once must stay.
void TellOlderMode(HostWindow& window, const HostProfile& profile) {
  if (!IsOlderModeNews(profile.database.get(), Registry(profile.paths.registry))) return;
  auto* const box = new QMessageBox(QMessageBox::Information, window.windowTitle(),
                                    HostText(kHostTextOlderMode), QMessageBox::Ok, &window);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace feedloom
