#pragma once

#include <QAbstractButton>
#include <string>

#include "look/SkinPieces.h"

namespace feedloom {

class Skin;

// A button drawn as an image, with one file for each state (ButtonImages.h) and an optional text
// over it. If files are missing, the user is warned (MissingImages.h), and the normal image
// replaces them. Without the normal image the button is drawn in the desktop's style. Space, Enter
// and a click press it. A checkable button shows the pressed image while it is checked, and ignores
// Enter. Interface thread, as all controls of this folder.
class CButtonEx : public QAbstractButton {
  Q_OBJECT

 public:
  // `imagePath` is in the file system's bytes.
  CButtonEx(const std::string& imagePath, QWidget* parent);

  // The image's size, extended to the text's.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool LooksPressed() const { return isDown() || isChecked(); }
  ButtonState State() const;
  void DrawDesktopButton(QPainter& painter) const;
  void DrawLabel(QPainter& painter) const;

  const StateImages images_;
};

// Creates a toolbar button, which `parent` owns. `imageKey` names its image in `section`,
// `tooltipKey` the text that is its tool tip and accessible name. A click does not move the focus
// to it.
CButtonEx* MakeToolButton(const Skin& skin, const char* section, const char* imageKey,
                          const char* tooltipKey, QWidget* parent);

// Enables or disables a button of MakeToolButton. While it is disabled, the text under `reasonKey`,
// if the host has one, tells why in place of its tool tip.
void EnableToolButton(QAbstractButton& button, bool isEnabled, const Skin& skin,
                      const char* reasonKey);

}  // namespace feedloom
