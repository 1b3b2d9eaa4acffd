#pragma once

#include <QRadioButton>

#include "look/SkinPieces.h"

namespace feedloom {

// A radio button drawn as the image of its state (ButtonImages.h) with its text to the right. The
// pressed image is also that of the checked button, and is drawn paler when it is disabled. Without
// the normal or the pressed image it is drawn in the desktop's style.
class CVxRadioButton : public QRadioButton {
  Q_OBJECT

 public:
  // `imageKey` names the image in `section` of the skin.
  CVxRadioButton(const Skin& skin, const char* section, const char* imageKey, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool hitButton(const QPoint& point) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool IsSkinned() const;
  ButtonState State() const;

  const StateImages images_;
};

}  // namespace feedloom
