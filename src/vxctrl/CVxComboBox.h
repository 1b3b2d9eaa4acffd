#pragma once

#include <QComboBox>

#include "vxctrl/SkinPieces.h"

namespace feedloom {

class Skin;

// The skin has a drop-down list for toolbars and one for dialogs.
enum class ComboLook { Toolbar, Dialog };

// The skinned drop-down list: the toolkit's own on three pieces of the skin, the arrow on the right
// one. An entry that is too long is cut; none makes the box wider. Without the skin's pieces it
// looks as the desktop's do.
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
