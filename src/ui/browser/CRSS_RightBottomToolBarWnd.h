#pragma once

#include <QWidget>
#include <vector>

#include "vxctrl/SkinPieces.h"

class QAbstractButton;

namespace feedloom {

class CVxEdit;
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
  CRSS_RightBottomToolBarWnd(const Skin& skin, QWidget* parent);

  // What the skin gives it, in pixels.
  QSize sizeHint() const override { return size_; }
  int Height() const { return size_.height(); }

  // Of the command's button. All are enabled at first.
  void Enable(BrowserCommand command, bool isEnabled);

  // As it stands in the box; may be empty.
  QString Address() const;
  void SetAddress(const QString& address);
  // The user has typed into the box, which still has the keyboard, since SetAddress.
  bool IsAddressEdited() const;
  // The keyboard goes to the address, which is selected.
  void FocusAddress();

  // The feed button's place on the screen.
  QRect FeedButtonPlace() const;
  void FocusFeedButton();

 signals:
  void Commanded(BrowserCommand command);
  // Escape in the address box: the keyboard is to go back to the page.
  void AddressLeft();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButton(BrowserCommand command, QAbstractButton* button);
  QAbstractButton& ButtonOf(BrowserCommand command) const;
  bool HasAddressKeyboard() const;

  const QSize size_;
  const ThreePieces background_;
  std::vector<QAbstractButton*> buttons_;  // from left to right
  CVxEdit* address_;
};

}  // namespace feedloom
