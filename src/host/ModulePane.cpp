#include "host/ModulePane.h"

#include <QVBoxLayout>
#include <string>

#include "host/HostTables.h"
#include "shell/Feedloom.h"

namespace feedloom {

ModulePane::ModulePane(QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
}

void ModulePane::Fill(QWidget* frame) { layout()->addWidget(frame); }

bool ModulePane::event(QEvent* event) {
  if (event->type() != WindowMessage::kType) return QWidget::event(event);
  const auto& message = *static_cast<WindowMessage*>(event);
  if (message.number == kMessageTextIsFailure) return emit FailureReported(), true;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a message carries a pointer as lParam
  const auto* text = reinterpret_cast<const std::string*>(message.lParam);
  if (text == nullptr) return false;
  switch (message.number) {
    case kMessageShowText:
      emit TextReported(FromModuleText(*text));
      return true;
    case kMessageUndoOffered:
      emit UndoOffered(FromModuleText(*text));
      return true;
    default:
      return false;
  }
}

}  // namespace feedloom
