#include "ui/tree/CRSS_LeftToolBarWnd.h"

#include <QPainter>

#include "controls/AccessibleRole.h"
#include "controls/CButtonEx.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/WebDirectory.h"

namespace feedloom {
namespace {

constexpr int kFirstButtonLeft = 7;
constexpr int kButtonGap = 4;
constexpr QSize kDefaultSize(251, 40);  // used when the skin has no size
constexpr QPoint kMenuPosition(7, 54);

// The separator line is drawn to the left of this button.
constexpr CRSS_LeftToolBarWnd::Button kFirstAfterSeparator = CRSS_LeftToolBarWnd::kAddChannel;

struct ButtonKeys {
  const char* image;
  const char* tooltip;
};

// From left to right.
constexpr ButtonKeys kButtons[] = {
    {kButtonMenu, kTextMenuTooltip},
    {kButtonUpdate, kTextUpdateTooltip},
    {kButtonAddChannel, kTextAddChannelTooltip},
    {kButtonDirectory, kTextDirectoryTooltip},
};

}  // namespace

CRSS_LeftToolBarWnd::CRSS_LeftToolBarWnd(const Skin& skin, QWidget* parent)
    : QWidget(parent),
      size_(LoadSkinSize(skin, kSectionLeft, kLeftToolbarWidth, kLeftToolbarHeight, kDefaultSize)),
      background_(LoadThreePieces(skin, kSectionLeft, kImageLeftTopLeft, kImageLeftTopMiddle,
                                  kImageLeftTopRight)),
      line_(LoadSkinImage(skin, kSectionLeft, kImageLeftLine)) {
  setObjectName("RSS_LeftToolBar");
  SetAccessibleRole(*this, QAccessible::ToolBar);
  setAccessibleName(SkinText(skin, kTextLeftToolBar));
  for (int button = 0; button < kButtonCount; ++button) {
    buttons_[static_cast<std::size_t>(button)] =
        MakeToolButton(skin, kSectionLeft, kButtons[button].image, kButtons[button].tooltip, this);
    connect(buttons_[static_cast<std::size_t>(button)], &QAbstractButton::clicked, this,
            [this, button] { emit Clicked(static_cast<Button>(button)); });
  }
  EnableToolButton(*buttons_[kDirectory], HasWebDirectory(skin), skin, kTextDirectoryMissing);
}

QPoint CRSS_LeftToolBarWnd::MenuPosition() const { return kMenuPosition; }

void CRSS_LeftToolBarWnd::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
  const int right = buttons_[kFirstAfterSeparator]->x() - kButtonGap;
  const QSize size = SizeOf(line_);
  painter.drawPixmap(right - size.width(), (height() - size.height()) / 2, line_);
}

void CRSS_LeftToolBarWnd::resizeEvent(QResizeEvent* /*event*/) {
  int left = kFirstButtonLeft;
  for (int button = 0; button < kButtonCount; ++button) {
    if (button == kFirstAfterSeparator) {
      left += SizeOf(line_).width() + kButtonGap;
    }
    const QSize size = buttons_[static_cast<std::size_t>(button)]->sizeHint();
    buttons_[static_cast<std::size_t>(button)]->setGeometry(
        {QPoint(left, (height() - size.height()) / 2), size});
    left += size.width() + kButtonGap;
  }
}

}  // namespace feedloom
