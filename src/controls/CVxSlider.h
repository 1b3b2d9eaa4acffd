#pragma once

#include <QSlider>

#include "look/SkinPieces.h"

namespace feedloom {

// A horizontal slider drawn with three images of the skin as its groove, and an image for each
// state as its thumb. A press on the groove moves the thumb there. Without the images it is drawn,
// and takes the mouse, in the desktop's style.
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
  // The range of the thumb's left edge, in pixels.
  int ThumbRange() const;
  void MoveThumbTo(int left);
  QSize AtLeastImages(const QSize& hint) const;

  const ThreePieces groove_;
  const StateImages thumb_;
  int grip_ = 0;  // the pressed point's distance from the thumb's left edge
};

}  // namespace feedloom
