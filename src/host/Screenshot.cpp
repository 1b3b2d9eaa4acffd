#include "host/Screenshot.h"

#include <fmt/core.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QSaveFile>
#include <QTimer>
#include <QWidget>
#include <utility>

#include "host/Complaint.h"

namespace feedloom {
namespace {

QWidget& KeyReceiver(QWidget& widget) {
  return widget.focusProxy() == nullptr ? widget : KeyReceiver(*widget.focusProxy());
}

void PressKey(QWidget& widget, Qt::Key key) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
  }
}

Failure SavePicture(const QPixmap& picture, const QString& path) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit()) return {};
  return fmt::format("Cannot write the picture '{}': {}.", path.toStdString(),
                     file.errorString().toStdString());
}

}  // namespace

Screenshot::Screenshot(QWidget& window, QWidget& frame, QString file)
    : window_(window), frame_(frame), file_(std::move(file)) {}

Failure Screenshot::Start(std::chrono::milliseconds limit) {
  // By name: the host knows the frame's class only as a widget.
  if (!connect(&frame_, SIGNAL(PageShown()), this, SLOT(OnPageShown()))) {
    return "The module does not tell when it has shown a page.";
  }
  QTimer::singleShot(limit, this, [this] { Leave("The module has shown no page in time."); });
  return {};
}

void Screenshot::OnPageShown() {
  if (isRowChosen_) {
    LookForChange();
  } else {
    isRowChosen_ = true;
    PressKey(KeyReceiver(frame_), Qt::Key_Home);
  }
}

// A page's images come a few frames after it: the picture is good when it has stopped changing. One
// that moves for ever is good, too, after a while.
void Screenshot::LookForChange() {
  constexpr std::chrono::milliseconds kBetweenLooks(100);
  constexpr int kMostLooks = 20;
  const QPixmap picture = window_.grab();
  if (picture.toImage() == lastPicture_ || ++looks_ == kMostLooks) {
    return Leave(SavePicture(picture, file_));
  }
  lastPicture_ = picture.toImage();
  QTimer::singleShot(kBetweenLooks, this, &Screenshot::LookForChange);
}

void Screenshot::Leave(const Failure& failure) {
  disconnect(&frame_, nullptr, this, nullptr);
  if (failure) Complain(*failure);
  QCoreApplication::exit(failure ? 1 : 0);
}

}  // namespace feedloom
