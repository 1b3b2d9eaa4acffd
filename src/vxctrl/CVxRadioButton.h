#pragma once

#include <QRadioButton>

#include "vxctrl/SkinPieces.h"

namespace feedloom {

// The skinned radio button: the toolkit's own with an image by its state (ButtonImages.h) and the
// text right of it. Pressed is the image of the chosen one too, paler when it is disabled. Without
// the image, or the pressed one, it looks as the desktop's do.
class CVxRadioButton : public QRadioButton {
  Q_OBJECT

 public:
  // The key names the image in this section of the skin.
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
