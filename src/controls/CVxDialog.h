// The base class of the skinned dialogs.
#pragma once

#include <QColor>
#include <QDialog>
#include <QPixmap>
#include <functional>

class QHBoxLayout;

namespace feedloom {

class CButtonEx;
class Skin;

// The transparency of a window that cannot be seen; that of an opaque one is 0.
inline constexpr int kInvisible = 250;

// The room in a dialog, in pixels: around its contents, and between neighbours.
inline constexpr int kDialogMargin = 20;
inline constexpr int kDialogGap = 8;

// A dialog with the host's font and colours. Enter presses its confirm button, Escape cancels.
//
// The OK button calls accept(). A dialog that checks its fields overrides accept(), shows a message
// and returns without calling the base class; it stays open then. The dialog may be destroyed while
// the message is shown. Text keys are those of kSectionTexts. Interface thread.
class CVxDialog : public QDialog {
  Q_OBJECT

 public:
  // Sets the transparency, 0 to kInvisible. Has no effect on a desktop without a compositor.
  void SetAlphaValue(int level);
  // Draws `image` unscaled at the window's upper left corner, behind the children. None when null.
  void SetBackground(const QPixmap& image);
  // Makes the pixels of the background image that have this colour no part of the window.
  void SetColorKey(const QColor& color);

 protected:
  // The caption is the text of `titleKey`, or the application's title when that is null. `skin`
  // must live until the derived class's constructor has ended.
  CVxDialog(const Skin& skin, const char* titleKey, QWidget* parent, Qt::WindowFlags flags = {});

  // A child button with a text; `imageKey` names its image in `section`.
  CButtonEx* MakeButton(const char* section, const char* imageKey, const char* textKey);
  // A row with the buttons OK and, unless `cancelKey` is null, Cancel; the keys name their images
  // in `section`. OK becomes the confirm button. The layout to which the caller adds the row owns
  // it.
  QHBoxLayout* MakeButtonRow(const char* section, const char* confirmKey, const char* cancelKey);
  // The button that Enter presses; null when there is none.
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

// Shows `dialog`, which was created with new, until it is closed, and deletes it. When it was
// accepted, calls `read`, which may read the dialog's fields, and returns true. Returns false when
// it was cancelled, or was destroyed meanwhile together with its parent.
bool RunDialog(CVxDialog* dialog, const std::function<void()>& read);

}  // namespace feedloom
