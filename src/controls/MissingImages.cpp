#include "controls/MissingImages.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <utility>
#include <vector>

namespace feedloom {
namespace {

struct MissingImage {
  QString path;
  QPointer<QWidget> button;
};

// Those of which the user has not been warned yet.
std::vector<MissingImage>& Untold() {
  static std::vector<MissingImage> images;
  return images;
}

void Warn() {
  std::vector<MissingImage> images = std::exchange(Untold(), {});
  std::erase_if(images, [](const MissingImage& image) { return !image.button; });
  if (images.empty()) return;
  auto* const warning = new QMessageBox(QMessageBox::Warning, QStringLiteral("Warning"),
                                        images[0].path + QStringLiteral(" File not found!"),
                                        QMessageBox::Ok, images[0].button);
  if (images.size() > 1) {
    warning->setInformativeText(QStringLiteral("Files missing besides: %1").arg(images.size() - 1));
  }
  warning->setTextFormat(Qt::PlainText);
  warning->setAttribute(Qt::WA_DeleteOnClose);
  warning->open();
}

}  // namespace

void WarnOfMissingImage(const QString& path, QWidget* button) {
  const bool isSame = std::ranges::find(Untold(), path, &MissingImage::path) != Untold().end();
  if (isSame) return;
  // Queued: the message box needs the button's window as parent, which is still being built.
  if (Untold().empty()) QMetaObject::invokeMethod(qApp, &Warn, Qt::QueuedConnection);
  Untold().push_back({path, button});
}

}  // namespace feedloom
