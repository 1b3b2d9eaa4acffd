#include "host/DesktopTheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <optional>

namespace feedloom {
namespace {

constexpr int kPortalTimeout = 500;  // milliseconds

// The values of the portal's "color-scheme"; 0 means no preference.
constexpr unsigned kDark = 1;
constexpr unsigned kLight = 2;

// The portal's Read method wraps its answer in two variants.
unsigned Innermost(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value.toUInt();
}

unsigned PortalsColorScheme() {
  // Without the address the D-Bus library would start a session bus.
  if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return 0;
  auto question = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                                 QStringLiteral("/org/freedesktop/portal/desktop"),
                                                 QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("Read"));
  question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
  const QDBusMessage answer =
      QDBusConnection::sessionBus().call(question, QDBus::Block, kPortalTimeout);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return 0;
  return Innermost(answer.arguments().front());
}

}  // namespace

bool PrefersDark(const QPalette& desktop) {
  const unsigned scheme = PortalsColorScheme();
  if (scheme == kDark || scheme == kLight) return scheme == kDark;
  return desktop.color(QPalette::Window).lightness() <
         desktop.color(QPalette::WindowText).lightness();
}

}  // namespace feedloom
