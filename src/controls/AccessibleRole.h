// The accessible role of widgets for which the toolkit has none.
#pragma once

#include <QAccessible>

class QWidget;

namespace feedloom {

// Sets the role that a screen reader reports for `widget`. Call this first, in the constructor: the
// toolkit asks for the role once, at the first use of its accessible interface (a change of the
// accessible name is one), and keeps the answer. Interface thread.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace feedloom
