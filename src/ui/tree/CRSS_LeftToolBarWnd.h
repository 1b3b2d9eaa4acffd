#pragma once

#include <QWidget>
#include <array>

#include "vxctrl/SkinPieces.h"

class QAbstractButton;

namespace feedloom {

class Skin;

// The strip of buttons above the tree. Its object name is "RSS_LeftToolBar".
class CRSS_LeftToolBarWnd : public QWidget {
  Q_OBJECT

 public:
  enum Button { kMenu, kUpdate, kAddChannel, kDirectory, kButtonCount };

  CRSS_LeftToolBarWnd(const Skin& skin, QWidget* parent);

  // The size that the skin gives it, in pixels; the width is the least that shows all of it.
  QSize sizeHint() const override { return size_; }

  // All buttons are enabled at first.
  void Enable(Button button, bool isEnabled);

  // Where the menu of the menu button opens, in this widget.
  QPoint MenuPlace() const;

 signals:
  void Clicked(Button button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  const QSize size_;
  const ThreePieces background_;
  const QPixmap line_;
  std::array<QAbstractButton*, kButtonCount> buttons_;
};

}  // namespace feedloom
