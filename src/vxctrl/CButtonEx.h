#pragma once

#include <QAbstractButton>
#include <string>

#include "vxctrl/SkinPieces.h"

namespace feedloom {

class Skin;

// A button that is an image: one file for each state (ButtonImages.h), and optionally a text over
// it. A file that is missing is named by a warning, one for a button, and the normal image stands
// in; without that the button looks as the desktop's buttons do. Space, Enter and a click press it.
// A checkable one shows the pressed image while it is checked, and leaves Enter to its window.
class CButtonEx : public QAbstractButton {
  Q_OBJECT

 public:
  // `imagePath` is the file system's own bytes.
  CButtonEx(const std::string& imagePath, QWidget* parent);

  // The image's size, or what the text needs when that is more.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void WarnOfMissingFile(const QString& path);
  bool LooksPressed() const { return isDown() || isChecked(); }
  ButtonState State() const;
  void DrawDesktopButton(QPainter& painter) const;
  void DrawLabel(QPainter& painter) const;

  const StateImages images_;
};

// A button of a toolbar, by the keys of its image and of its tooltip, which is also its name. A
// click leaves the keyboard where it is.
CButtonEx* MakeToolButton(const Skin& skin, const char* section, const char* imageKey,
                          const char* tooltipKey, QWidget* parent);

}  // namespace feedloom
