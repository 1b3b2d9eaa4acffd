#pragma once

#include <QWidget>
#include <array>

#include "look/SkinPieces.h"

class QAbstractButton;

namespace feedloom {

class Skin;

// The toolbar above the tree. Its object name is "RSS_LeftToolBar". Interface thread only.
class CRSS_LeftToolBarWnd : public QWidget {
  Q_OBJECT

 public:
  enum Button { kMenu, kUpdate, kAddChannel, kDirectory, kButtonCount };

  // `skin` is read during the call only.
  CRSS_LeftToolBarWnd(const Skin& skin, QWidget* parent);

  // The size from the skin in pixels. The width is the smallest that shows all buttons.
  QSize sizeHint() const override { return size_; }

  // Where the menu button's menu opens, in this widget's coordinates.
  QPoint MenuPosition() const;

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
