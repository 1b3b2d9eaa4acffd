#include "host/ErrorReport.h"

#include <fmt/core.h>

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <memory>

namespace feedloom {

void ReportError(const std::string& text) {
  std::fputs(fmt::format("halvix: {}\n", text).c_str(), stderr);
}

bool HasDisplay() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.startsWith("offscreen") || platform.startsWith("minimal")) return false;
  return !qgetenv("DISPLAY").isEmpty() || !qgetenv("WAYLAND_DISPLAY").isEmpty();
}

void ShowErrorBox(const std::string& text) {
  int argc = 1;
  char name[] = "halvix";
  char* argv[] = {name, nullptr};
  const auto application = qApp == nullptr ? std::make_unique<QApplication>(argc, argv) : nullptr;
  QMessageBox box(QMessageBox::Critical, "Halvix", QString::fromStdString(text), QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace feedloom
