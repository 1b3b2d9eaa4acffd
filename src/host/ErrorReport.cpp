#include "host/ErrorReport.h"

#include <fmt/core.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

#include "files/Registry.h"
#include "host/ApplicationStyle.h"
#include "profile/HostTexts.h"
#include "skin/HostConfig.h"
#include "skin/Skin.h"

namespace feedloom {

void ReportError(const std::string& text) {
  std::fputs(fmt::format("halvix: {}\n", text).c_str(), stderr);
}

bool HasDisplay() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.startsWith("offscreen") || platform.startsWith("minimal")) return false;
  return !qgetenv("DISPLAY").isEmpty() || !qgetenv("WAYLAND_DISPLAY").isEmpty();
}

namespace {

std::optional<ApplicationStyle> StyleOf(const std::string& registry) {
  const HostConfig config{Registry(registry)};
  if (config.GetImageDir().empty()) return std::nullopt;
  return std::optional<ApplicationStyle>(std::in_place, Skin(ReadHostTexts(config), config));
}

}  // namespace

int ShowErrorBox(const std::string& text, const std::string& registry,
                 const std::vector<std::string>& choices) {
  int argc = 1;
  char name[] = "halvix";
  char* argv[] = {name, nullptr};
  const auto application = qApp == nullptr ? std::make_unique<QApplication>(argc, argv) : nullptr;
  const auto style = application ? StyleOf(registry) : std::nullopt;
  QMessageBox box(QMessageBox::Critical, "Feedloom", QString::fromStdString(text),
                  choices.empty() ? QMessageBox::Ok : QMessageBox::NoButton);
  std::vector<const QAbstractButton*> buttons;
  for (const std::string& choice : choices) {
    auto* const button = box.addButton(QString::fromStdString(choice), QMessageBox::ActionRole);
    buttons.push_back(button);
    box.setDefaultButton(button);
    box.setEscapeButton(button);
  }
  box.setTextFormat(Qt::PlainText);
  box.exec();
  const auto pressed = std::ranges::find(buttons, box.clickedButton());
  return pressed == buttons.end() ? -1 : static_cast<int>(pressed - buttons.begin());
}

}  // namespace feedloom
