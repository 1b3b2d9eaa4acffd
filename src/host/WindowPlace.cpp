#include "host/WindowPlace.h"

#include <QByteArray>
#include <QScreen>
#include <QWidget>

#include "skin/Keys.h"

namespace feedloom {

QRect FirstPlace(const QRect& available) {
  QRect place(QPoint(), QSize(kFirstWidth, kFirstHeight).boundedTo(available.size()));
  place.moveCenter(available.center());
  return place;
}

void PlaceWindow(QWidget& window, const Registry& registry) {
  const auto remembered = registry.ReadString(kHostKey, kValueWindowGeometry);
  const auto geometry = QByteArray::fromHex(QByteArray::fromStdString(remembered.value_or("")));
  if (window.restoreGeometry(geometry)) return;
  window.setGeometry(FirstPlace(window.screen()->availableGeometry()));
}

bool RememberPlace(const QWidget& window, const Registry& registry) {
  const std::string geometry = window.saveGeometry().toHex().toStdString();
  return registry.WriteString(kHostKey, kValueWindowGeometry, geometry);
}

}  // namespace feedloom
