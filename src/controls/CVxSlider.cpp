#include "controls/CVxSlider.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include "look/SkinDrawing.h"
#include "skin/Keys.h"

namespace feedloom {

CVxSlider::CVxSlider(const Skin& skin, QWidget* parent)
    : QSlider(Qt::Horizontal, parent),
      groove_(LoadThreePieces(skin, kSectionControls, kImageSliderLeft, kImageSliderMiddle,
                              kImageSliderRight)),
      thumb_(LoadStateImages(skin, kSectionControls, kImageSliderThumb)) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);  // repaint when the pointer enters and leaves
}

bool CVxSlider::IsSkinned() const {
  return !groove_.middle.isNull() && !thumb_[kButtonNormal].isNull();
}

QSize CVxSlider::AtLeastImages(const QSize& hint) const {
  if (!IsSkinned()) return hint;
  const QSize thumb = SizeOf(thumb_[kButtonNormal]);
  return hint.expandedTo(thumb).expandedTo({0, SizeOf(groove_.middle).height()});
}

QSize CVxSlider::sizeHint() const { return AtLeastImages(QSlider::sizeHint()); }

QSize CVxSlider::minimumSizeHint() const { return AtLeastImages(QSlider::minimumSizeHint()); }

ButtonState CVxSlider::State() const {
  if (!isEnabled()) return kButtonDisabled;
  if (isSliderDown()) return kButtonPressed;
  return underMouse() ? kButtonHover : kButtonNormal;
}

int CVxSlider::ThumbRange() const { return width() - SizeOf(thumb_[kButtonNormal]).width(); }

QRect CVxSlider::ThumbPlace() const {
  const QSize size = SizeOf(thumb_[kButtonNormal]);
  const int left =
      QStyle::sliderPositionFromValue(minimum(), maximum(), sliderPosition(), ThumbRange());
  return {QPoint(left, (height() - size.height()) / 2), size};
}

void CVxSlider::paintEvent(QPaintEvent* event) {
  if (!IsSkinned()) return QSlider::paintEvent(event);
  QPainter painter(this);
  const int grooveHeight = SizeOf(groove_.middle).height();
  painter.setOpacity(isEnabled() ? 1.0 : kDisabledOpacity);
  DrawThreePieces(painter, {0, (height() - grooveHeight) / 2, width(), grooveHeight}, groove_);
  painter.setOpacity(1.0);
  painter.drawPixmap(ThumbPlace().topLeft(), thumb_[State()]);
  if (hasFocus()) DrawSkinFocus(painter, palette(), rect(), 0);
}

void CVxSlider::MoveThumbTo(int left) {
  setSliderPosition(QStyle::sliderValueFromPosition(minimum(), maximum(), left, ThumbRange()));
}

// The base class would look for the thumb where the desktop's style draws it.
void CVxSlider::mousePressEvent(QMouseEvent* event) {
  if (!IsSkinned()) return QSlider::mousePressEvent(event);
  if (event->button() != Qt::LeftButton) return event->ignore();
  const QRect thumb = ThumbPlace();
  const QPoint point = event->position().toPoint();
  const bool isOnThumb = thumb.contains(point);
  grip_ = isOnThumb ? point.x() - thumb.left() : thumb.width() / 2;
  setSliderDown(true);
  if (!isOnThumb) MoveThumbTo(point.x() - grip_);
}

void CVxSlider::mouseMoveEvent(QMouseEvent* event) {
  if (!IsSkinned()) return QSlider::mouseMoveEvent(event);
  if (isSliderDown()) MoveThumbTo(event->position().toPoint().x() - grip_);
}

void CVxSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (!IsSkinned()) return QSlider::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) setSliderDown(false);
  update();
}

}  // namespace feedloom
