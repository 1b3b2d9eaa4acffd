// What a screen reader takes a control for, where the toolkit knows no better than "a widget".
#pragma once

#include <QAccessible>

class QWidget;

namespace feedloom {

// To be called before anything else is done to the widget: whoever asks for its role before, and so
// does each change of its name, gets the toolkit's one for good.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace feedloom
