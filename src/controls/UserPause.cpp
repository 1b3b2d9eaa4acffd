#include "controls/UserPause.h"

#include <QApplication>
#include <utility>

namespace feedloom {

bool IsUserBusy() {
  return QApplication::activeModalWidget() != nullptr ||
         QApplication::activePopupWidget() != nullptr ||
         QGuiApplication::mouseButtons() != Qt::NoButton;
}

UserPause::UserPause(QObject* parent, std::function<void()> run) : QTimer(parent) {
  setObjectName("userPause");
  setSingleShot(true);
  setInterval(QApplication::doubleClickInterval());
  callOnTimeout([this, run = std::move(run)] { IsUserBusy() ? start() : run(); });
}

}  // namespace feedloom
