#include "host/Screenshot.h"

#include <fmt/core.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QSaveFile>
#include <QTimer>
#include <QWidget>
#include <utility>

#include "host/ErrorReport.h"

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
  // Connected by name: the host does not know the frame's class.
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
    // Enter, because the first row may be selected already.
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Return}) PressKey(KeyReceiver(frame_), key);
  }
}

// A page's images appear a few frames after the page itself, so the picture is taken when two
// comparisons in a row are equal. An animated page never gets there: the last comparison is taken.
void Screenshot::LookForChange() {
  constexpr std::chrono::milliseconds kInterval(100);
  constexpr int kMaxComparisons = 20;
  const QPixmap picture = window_.grab();
  if (picture.toImage() == lastPicture_ || ++comparisons_ == kMaxComparisons) {
    return Leave(SavePicture(picture, file_));
  }
  lastPicture_ = picture.toImage();
  QTimer::singleShot(kInterval, this, &Screenshot::LookForChange);
}

void Screenshot::Leave(const Failure& failure) {
  disconnect(&frame_, nullptr, this, nullptr);
  if (failure) ReportError(*failure);
  QCoreApplication::exit(failure ? 1 : 0);
}

}  // namespace feedloom
