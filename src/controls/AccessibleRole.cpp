#include "controls/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace feedloom {
namespace {

constexpr char kRole[] = "accessibleRole";

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  const QVariant role = widget == nullptr ? QVariant() : widget->property(kRole);
  if (!role.isValid()) return nullptr;  // leave it to the toolkit's factories
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  [[maybe_unused]] static const bool isInstalled = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  widget.setProperty(kRole, static_cast<int>(role));
}

}  // namespace feedloom
