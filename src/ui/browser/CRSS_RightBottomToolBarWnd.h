#pragma once

#include <QWidget>
#include <vector>

#include "look/SkinPieces.h"

class QAbstractButton;
class QUrl;

namespace feedloom {

class AddressBox;
class Skin;

// The commands of the browser's toolbar.
enum BrowserCommand : int {
  kBrowserBack = 0xBBE,
  kBrowserNext = 0xBBF,
  kBrowserStop = 0xBC0,
  kBrowserRefresh = 0xBC1,
  kBrowserGo = 0xBC3,
  kBrowserFeed = 0xBC4,
  kBrowserGoByKey = 0x801C,  // Enter in the address box
};

// The strip above the browser: buttons, and the address box between "refresh" and "go". Its object
// name is "RSS_RightBottomToolBar".
class CRSS_RightBottomToolBarWnd : public QWidget {
  Q_OBJECT

 public:
  // `skin` must outlive the toolbar.
  CRSS_RightBottomToolBarWnd(const Skin& skin, QWidget* parent);

  // The size that the skin specifies, in pixels.
  QSize sizeHint() const override { return size_; }
  int Height() const { return size_.height(); }

  // Enables or disables the button of `command`. All buttons are enabled at first. A disabled one
  // tells why in its tip.
  void Enable(BrowserCommand command, bool isEnabled);

  // The text in the address box; may be empty.
  QString Address() const;
  // Shows `address` as DisplayAddress does.
  void SetAddress(const QUrl& address);
  // Whether the user has typed into the box since SetAddress and the box still has the focus.
  bool IsAddressEdited() const;
  // Moves the focus to the address box and selects its text.
  void FocusAddress();

  // The feed button's rectangle in screen coordinates.
  QRect FeedButtonPlace() const;
  void FocusFeedButton();

 signals:
  void Commanded(BrowserCommand command);
  // The user has pressed Escape in the address box: the focus should go back to the page.
  void AddressLeft();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButton(BrowserCommand command, QAbstractButton* button);
  QAbstractButton& ButtonOf(BrowserCommand command) const;
  bool HasAddressKeyboard() const;

  const Skin& skin_;
  const QSize size_;
  const ThreePieces background_;
  std::vector<QAbstractButton*> buttons_;  // from left to right
  AddressBox* address_;
};

}  // namespace feedloom
