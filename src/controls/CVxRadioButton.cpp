#include "controls/CVxRadioButton.h"

#include <QPainter>
#include <algorithm>

#include "look/SkinDrawing.h"

namespace feedloom {
namespace {

constexpr int kRingMargin = 3;  // around image and text, with room for the focus ring
constexpr int kTextGap = 6;

}  // namespace

CVxRadioButton::CVxRadioButton(const Skin& skin, const char* section, const char* imageKey,
                               QWidget* parent)
    : QRadioButton(parent), images_(LoadStateImages(skin, section, imageKey)) {
  setAttribute(Qt::WA_Hover);  // repaint when the pointer enters and leaves
}

// Without an own pressed image the checked button could not be told from the others.
bool CVxRadioButton::IsSkinned() const {
  return !images_[kButtonPressed].isNull() &&
         images_[kButtonPressed].cacheKey() != images_[kButtonNormal].cacheKey();
}

QSize CVxRadioButton::sizeHint() const {
  if (!IsSkinned()) return QRadioButton::sizeHint();
  const QSize image = SizeOf(images_[kButtonNormal]);
  const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
  return QSize(image.width() + kTextGap + label.width(), std::max(image.height(), label.height()))
      .grownBy({kRingMargin, kRingMargin, kRingMargin, kRingMargin});
}

QSize CVxRadioButton::minimumSizeHint() const { return sizeHint(); }

bool CVxRadioButton::hitButton(const QPoint& point) const {
  if (!IsSkinned()) return QRadioButton::hitButton(point);
  return rect().contains(point) && point.x() < sizeHint().width();
}

ButtonState CVxRadioButton::State() const {
  if (isChecked() || isDown()) return kButtonPressed;
  if (!isEnabled()) return kButtonDisabled;
  return underMouse() ? kButtonHover : kButtonNormal;
}

void CVxRadioButton::paintEvent(QPaintEvent* event) {
  if (!IsSkinned()) return QRadioButton::paintEvent(event);
  QPainter painter(this);
  const QPixmap& image = images_[State()];
  const QSize size = SizeOf(image);
  const bool isPale = !isEnabled() && State() == kButtonPressed;
  painter.setOpacity(isPale ? kDisabledOpacity : 1.0);
  painter.drawPixmap(kRingMargin, (height() - size.height()) / 2, image);
  painter.setOpacity(1.0);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect().adjusted(kRingMargin + size.width() + kTextGap, 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
  if (!hasFocus()) return;
  DrawSkinFocus(painter, palette(), rect() & QRect(0, 0, sizeHint().width(), height()), 0);
}

}  // namespace feedloom
