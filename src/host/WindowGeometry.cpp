#include "host/WindowGeometry.h"

#include <QByteArray>
#include <QScreen>
#include <QWidget>

#include "skin/Keys.h"

namespace feedloom {

QRect InitialGeometry(const QRect& available) {
  QRect place(QPoint(), QSize(kInitialWidth, kInitialHeight).boundedTo(available.size()));
  place.moveCenter(available.center());
  return place;
}

void RestoreWindowGeometry(QWidget& window, const Registry& registry) {
  const auto remembered = registry.ReadString(kHostKey, kValueWindowGeometry);
  const auto geometry = QByteArray::fromHex(QByteArray::fromStdString(remembered.value_or("")));
  if (window.restoreGeometry(geometry)) return;
  window.setGeometry(InitialGeometry(window.screen()->availableGeometry()));
}

bool SaveWindowGeometry(const QWidget& window, const Registry& registry) {
  const std::string geometry = window.saveGeometry().toHex().toStdString();
  return registry.WriteString(kHostKey, kValueWindowGeometry, geometry);
}

}  // namespace feedloom
