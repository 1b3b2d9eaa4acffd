// The skinned dialogs' base, and the way to show one.
#pragma once

#include <QColor>
#include <QDialog>
#include <QPixmap>
#include <functional>

class QHBoxLayout;

namespace feedloom {

class CButtonEx;
class Skin;

// How transparent a window is: 0 opaque, kInvisible not to be seen.
inline constexpr int kInvisible = 250;

// A window with the host's font and caption. Enter presses its confirming button, Escape cancels.
//
// OK calls accept(). A dialog that checks its fields overrides it, shows its message and returns,
// and stays open so; the dialog may have gone when the message has been read. Keys of texts are
// those of kSectionTexts.
class CVxDialog : public QDialog {
  Q_OBJECT

 public:
  // From 0 to kInvisible. Where the desktop does not mix windows, every one is opaque.
  void SetAlphaValue(int level);
  // The ground, in its own size at the upper left corner. A null image leaves the window as it is.
  void SetBackground(const QPixmap& image);
  // Where the ground has this colour the window ends.
  void SetColorKey(const QColor& color);

 protected:
  // The host's caption when `titleKey` is null. `skin` outlives the constructor of the derived
  // dialog.
  CVxDialog(const Skin& skin, const char* titleKey, QWidget* parent, Qt::WindowFlags flags = {});

  // A button with an image and a text; the key names the image in this section of the skin.
  CButtonEx* MakeButton(const char* section, const char* imageKey, const char* textKey);
  // A row with OK, and Cancel unless `cancelKey` is null; the keys name images in this section of
  // the skin. Enter presses OK. The row belongs to the layout that it is added to.
  QHBoxLayout* MakeButtonRow(const char* section, const char* confirmKey, const char* cancelKey);
  // What Enter presses.
  CButtonEx* ConfirmButton() const { return confirm_; }
  void SetConfirmButton(CButtonEx* button) { confirm_ = button; }

  const Skin& GetSkin() const { return skin_; }

  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void CutOut();

  const Skin& skin_;
  QPixmap background_;
  QColor colorKey_;  // invalid: none
  CButtonEx* confirm_ = nullptr;
};

// Shows `dialog`, which was made by new, until it is closed, and deletes it. True when it was
// accepted: `read`, which takes the answer out of its fields, was called then. False also when its
// parent went meanwhile, and the dialog with it; then nothing of the parent is left either.
bool RunDialog(CVxDialog* dialog, const std::function<void()>& read);

}  // namespace feedloom
