#include "controls/CButtonEx.h"

#include <qdrawutil.h>

#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

#include "controls/MissingImages.h"
#include "look/SkinDrawing.h"
#include "look/SkinText.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr int kLabelMargin = 12;  // between the text and the left and right edges
constexpr int kImageEdge = 6;     // the border of an image that is not stretched
constexpr int kFocusInset = 2;

void DrawImage(QPainter& painter, const QRect& area, const QPixmap& image) {
  if (SizeOf(image) == area.size()) {
    painter.drawPixmap(area.topLeft(), image);
    return;
  }
  const QSize size = SizeOf(image);
  const int edge = std::min({kImageEdge, size.width() / 2, size.height() / 2});
  const QMargins edges(edge, edge, edge, edge);
  QPixmap pixels = image;
  pixels.setDevicePixelRatio(1);
  qDrawBorderPixmap(&painter, area, edges, pixels, pixels.rect(), edges * image.devicePixelRatio());
}

// The first missing file of a state; null when all exist.
QString MissingFile(const std::string& imagePath) {
  for (const std::string& path : ButtonImagePaths(imagePath)) {
    const QString file = QFile::decodeName(path.c_str());
    if (!QFileInfo(file).isFile()) return file;
  }
  return {};
}

}  // namespace

CButtonEx::CButtonEx(const std::string& imagePath, QWidget* parent)
    : QAbstractButton(parent), images_(LoadStateImages(imagePath)) {
  setAttribute(Qt::WA_Hover);  // repaint when the pointer enters and leaves
  setFocusPolicy(Qt::StrongFocus);
  const QString missing = MissingFile(imagePath);
  if (!missing.isNull()) WarnOfMissingImage(missing, this);
}

QSize CButtonEx::sizeHint() const {
  const QSize image = SizeOf(images_[kButtonNormal]);
  if (text().isEmpty()) return image.isEmpty() ? QSize(24, 24) : image;
  const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
  return image.expandedTo(label + QSize(2 * kLabelMargin, kImageEdge));
}

QSize CButtonEx::minimumSizeHint() const { return sizeHint(); }

ButtonState CButtonEx::State() const {
  if (!isEnabled()) return kButtonDisabled;
  if (LooksPressed()) return kButtonPressed;
  return underMouse() ? kButtonHover : kButtonNormal;
}

void CButtonEx::DrawDesktopButton(QPainter& painter) const {
  QStyleOptionButton option;
  option.initFrom(this);
  option.state |= LooksPressed() ? QStyle::State_Sunken : QStyle::State_Raised;
  style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
}

void CButtonEx::DrawLabel(QPainter& painter) const {
  const QRect area = rect().adjusted(kImageEdge / 2, 0, -kImageEdge / 2, 0);
  const QString label =
      fontMetrics().elidedText(text(), Qt::ElideRight, area.width(), Qt::TextShowMnemonic);
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(area, Qt::AlignCenter | Qt::TextShowMnemonic, label);
}

void CButtonEx::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QPixmap& image = images_[State()];
  if (image.isNull()) {
    DrawDesktopButton(painter);
  } else {
    DrawImage(painter, rect(), image);
  }
  if (!text().isEmpty()) DrawLabel(painter);
  if (hasFocus()) DrawSkinFocus(painter, palette(), rect(), kFocusInset);
}

void CButtonEx::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || isCheckable()) return QAbstractButton::keyPressEvent(event);
  // A repeated Enter was pressed before the button had the focus, and meant for another widget.
  if (!event->isAutoRepeat()) click();
}

CButtonEx* MakeToolButton(const Skin& skin, const char* section, const char* imageKey,
                          const char* tooltipKey, QWidget* parent) {
  auto* const button = new CButtonEx(skin.GetImagePath(section, imageKey), parent);
  button->setToolTip(SkinText(skin, tooltipKey));
  button->setAccessibleName(button->toolTip());
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

void EnableToolButton(QAbstractButton& button, bool isEnabled, const Skin& skin,
                      const char* reasonKey) {
  if (button.isEnabled() == isEnabled) return;
  const QString reason = isEnabled ? QString() : SkinText(skin, reasonKey);
  button.setEnabled(isEnabled);
  button.setToolTip(reason.isEmpty() ? button.accessibleName() : reason);
  button.setAccessibleDescription(reason);
}

}  // namespace feedloom
