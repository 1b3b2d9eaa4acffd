#include "ui/browser/CRSS_RightBottomToolBarWnd.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cassert>
#include <iterator>

#include "controls/AccessibleRole.h"
#include "controls/CButtonEx.h"
#include "look/SkinFont.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/browser/AddressBox.h"
#include "ui/browser/BarMargins.h"

namespace feedloom {
namespace {

constexpr QSize kDefaultSize(508, 40);  // for what the skin does not specify

constexpr int kSmallestAddress = 60;

struct ButtonKeys {
  BrowserCommand command;
  const char* image;
  const char* tooltip;
  const char* whyNot = "";  // the tip while there is nothing to do; no text when there always is
};

// From left to right.
constexpr ButtonKeys kButtons[] = {
    {kBrowserBack, kButtonBack, kTextBackTooltip, kTextNoBack},
    {kBrowserNext, kButtonNext, kTextNextTooltip, kTextNoNext},
    {kBrowserStop, kButtonStop, kTextStopTooltip, kTextNoStop},
    {kBrowserRefresh, kButtonRefresh, kTextRefreshTooltip},
    {kBrowserGo, kButtonGo, kTextGoTooltip},
    {kBrowserFeed, kButtonFeed, kTextAddTooltip, kTextNoFeed},
};
constexpr BrowserCommand kFirstBehindAddress = kBrowserGo;

const ButtonKeys& KeysOf(BrowserCommand command) {
  const auto* const keys = std::ranges::find(kButtons, command, &ButtonKeys::command);
  assert(keys != std::end(kButtons));
  return *keys;
}

AddressBox* MakeAddress(const Skin& skin, QWidget* parent) {
  auto* address = new AddressBox(skin, parent);
  address->setAccessibleName(SkinText(skin, kTextAddress));
  return address;
}

}  // namespace

// The Tab key follows the order in which the controls are made.
CRSS_RightBottomToolBarWnd::CRSS_RightBottomToolBarWnd(const Skin& skin, QWidget* parent)
    : QWidget(parent),
      skin_(skin),
      size_(LoadSkinSize(skin, kSectionRightBottom, kRightBottomToolbarWidth,
                         kRightBottomToolbarHeight, kDefaultSize)),
      background_(LoadThreePieces(skin, kSectionRightBottom, kImageRightBottomLeft,
                                  kImageRightBottomMiddle, kImageRightBottomRight)) {
  setObjectName("RSS_RightBottomToolBar");
  SetAccessibleRole(*this, QAccessible::ToolBar);
  setAccessibleName(SkinText(skin, kTextRightBottomToolBar));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  for (const ButtonKeys& keys : kButtons) {
    if (keys.command == kFirstBehindAddress) address_ = MakeAddress(skin, this);
    AddButton(keys.command,
              MakeToolButton(skin, kSectionRightBottom, keys.image, keys.tooltip, this));
  }
}

void CRSS_RightBottomToolBarWnd::AddButton(BrowserCommand command, QAbstractButton* button) {
  connect(button, &QAbstractButton::clicked, this, [this, command] { emit Commanded(command); });
  buttons_.push_back(button);
}

QAbstractButton& CRSS_RightBottomToolBarWnd::ButtonOf(BrowserCommand command) const {
  return *buttons_[static_cast<std::size_t>(&KeysOf(command) - kButtons)];
}

void CRSS_RightBottomToolBarWnd::Enable(BrowserCommand command, bool isEnabled) {
  EnableToolButton(ButtonOf(command), isEnabled, skin_, KeysOf(command).whyNot);
}

QString CRSS_RightBottomToolBarWnd::Address() const { return address_->text(); }

void CRSS_RightBottomToolBarWnd::SetAddress(const QUrl& address) { address_->Show(address); }

// True also while another window is active: the user may look up there what to type.
bool CRSS_RightBottomToolBarWnd::HasAddressKeyboard() const {
  return window()->focusWidget() == address_;
}

bool CRSS_RightBottomToolBarWnd::IsAddressEdited() const {
  return HasAddressKeyboard() && address_->isModified();
}

void CRSS_RightBottomToolBarWnd::FocusAddress() {
  address_->setFocus(Qt::ShortcutFocusReason);
  address_->selectAll();
}

QRect CRSS_RightBottomToolBarWnd::FeedButtonPlace() const {
  const QAbstractButton& button = ButtonOf(kBrowserFeed);
  return {button.mapToGlobal(QPoint()), button.size()};
}

void CRSS_RightBottomToolBarWnd::FocusFeedButton() { ButtonOf(kBrowserFeed).setFocus(); }

void CRSS_RightBottomToolBarWnd::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
}

void CRSS_RightBottomToolBarWnd::resizeEvent(QResizeEvent* /*event*/) {
  int withoutAddress = 2 * kBarEdge;
  for (const auto* button : buttons_) withoutAddress += button->sizeHint().width() + kBarGap;

  int left = kBarEdge;
  const auto place = [&](QWidget& control, QSize size) {
    control.setGeometry(QRect(QPoint(left, (height() - size.height()) / 2), size));
    left += size.width() + kBarGap;
  };
  for (auto* button : buttons_) {
    if (button == &ButtonOf(kFirstBehindAddress)) {
      place(*address_,
            {std::max(width() - withoutAddress, kSmallestAddress), address_->sizeHint().height()});
    }
    place(*button, button->sizeHint());
  }
}

// Receives the keys that the focused control has ignored.
void CRSS_RightBottomToolBarWnd::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!address_->hasFocus() || (!isEnter && event->key() != Qt::Key_Escape)) {
    return QWidget::keyPressEvent(event);
  }
  if (event->isAutoRepeat()) return;
  if (isEnter) {
    emit Commanded(kBrowserGoByKey);
  } else {
    emit AddressLeft();
  }
}

}  // namespace feedloom
