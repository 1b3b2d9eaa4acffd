#pragma once

#include <QWidget>

#include "vxctrl/SkinPieces.h"

class QAbstractButton;

namespace feedloom {

class Skin;

// The strip of buttons above the tree. Its object name is "RSS_LeftToolBar".
class CRSS_LeftToolBarWnd : public QWidget {
  Q_OBJECT

 public:
  CRSS_LeftToolBarWnd(const Skin& skin, QWidget* parent);

  // The height that the skin gives it, in pixels.
  int Height() const { return height_; }

 signals:
  void UpdateClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  const int height_;
  const ThreePieces background_;
  QAbstractButton* const updateButton_;
};

}  // namespace feedloom
