// What the buttons of a page do with the texts that stand in it. A page of the web, or one made of
// a hostile feed, may have such buttons, too: each asks the user first.
#pragma once

#include <QStringList>

#include "ui/browser/NavigationRules.h"

namespace feedloom {

class Frame;

// `texts` are those of ElementIds(action); missing ones are empty. Shows a dialog; the caller may
// be gone when it returns.
void RunPageAction(Frame& frame, const PageAction& action, const QStringList& texts);

}  // namespace feedloom
