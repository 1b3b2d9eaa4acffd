#pragma once

#include <QSlider>

#include "vxctrl/SkinPieces.h"

namespace feedloom {

// The skinned horizontal slider: the toolkit's own with a groove of three pieces of the skin and a
// thumb by its state. A press on the groove brings the thumb there. Without the skin's images it
// looks, and takes the mouse, as the desktop's do.
class CVxSlider : public QSlider {
  Q_OBJECT

 public:
  CVxSlider(const Skin& skin, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool IsSkinned() const;
  ButtonState State() const;
  QRect ThumbPlace() const;
  // The way the thumb's left edge can go, in pixels.
  int Way() const;
  void MoveThumbTo(int left);
  QSize AtLeastImages(const QSize& hint) const;

  const ThreePieces groove_;
  const StateImages thumb_;
  int grip_ = 0;  // where in the thumb the mouse holds it, from its left edge
};

}  // namespace feedloom
