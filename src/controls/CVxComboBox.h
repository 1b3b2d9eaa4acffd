#pragma once

#include <QComboBox>

#include "look/SkinPieces.h"

namespace feedloom {

class Skin;

// The skin has two sets of images for drop-down lists.
enum class ComboLook { Toolbar, Dialog };

// A drop-down list drawn with three images of the skin, of which the right one has the arrow. The
// current entry is elided to the box's width; long entries do not widen the box, and ten are seen
// at once. Without the images it is drawn in the desktop's style.
class CVxComboBox : public QComboBox {
  Q_OBJECT

 public:
  CVxComboBox(const Skin& skin, ComboLook look, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ThreePieces pieces_;
};

}  // namespace feedloom
