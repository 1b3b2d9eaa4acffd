#include "host/RaiseWindow.h"

#include <QGuiApplication>
#include <QWidget>

namespace feedloom {

// Under Wayland the toolkit takes the token from the environment (xdg-activation).
void RaiseWindow(QWidget& window, const std::string& activationToken) {
  if (!activationToken.empty() && QGuiApplication::platformName().startsWith("wayland")) {
    qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(activationToken));
  }
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace feedloom
