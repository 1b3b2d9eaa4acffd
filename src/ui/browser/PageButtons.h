// The actions of a page's buttons. A web page or a hostile post may contain such buttons, too; so
// each action asks the user first.
#pragma once

#include <QStringList>

#include "ui/browser/NavigationRules.h"

namespace feedloom {

class Desk;
class Reading;
class Subscribing;
struct BrowserServices;

// Runs `action` with the texts of the elements ElementIds(action), in that order; missing texts
// count as empty. Shows a dialog; the caller, and what it passes too, may have been deleted when it
// returns. Interface thread.
void RunPageAction(Desk& desk, Subscribing& subscribing, Reading& reading,
                   const BrowserServices& services, const PageAction& action,
                   const QStringList& texts);

}  // namespace feedloom
