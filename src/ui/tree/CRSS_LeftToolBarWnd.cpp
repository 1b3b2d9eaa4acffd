#include "ui/tree/CRSS_LeftToolBarWnd.h"

#include <QPainter>

#include "platform/Text.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

constexpr int kFirstButtonLeft = 7;
constexpr int kDefaultHeight = 40;  // when the skin gives none

int HeightFrom(const Skin& skin) {
  const int height = ParseInt(skin.GetSkinValue(kSectionLeft, kLeftToolbarHeight));
  return height > 0 ? height : kDefaultHeight;
}

QAbstractButton* MakeButton(const Skin& skin, const char* imageKey, const char* tooltipKey,
                            QWidget* parent) {
  auto* button = new CButtonEx(skin.GetImagePath(kSectionLeft, imageKey), parent);
  const QString tooltip =
      ToQString(skin.Config().GetCodePage(), skin.GetText(kSectionTexts, tooltipKey));
  button->setToolTip(tooltip);
  button->setAccessibleName(tooltip);
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard with the tree
  return button;
}

}  // namespace

CRSS_LeftToolBarWnd::CRSS_LeftToolBarWnd(const Skin& skin, QWidget* parent)
    : QWidget(parent),
      height_(HeightFrom(skin)),
      background_(LoadThreePieces(skin, kSectionLeft, kImageLeftTopLeft, kImageLeftTopMiddle,
                                  kImageLeftTopRight)),
      updateButton_(MakeButton(skin, kButtonUpdate, kTextUpdateTooltip, this)) {
  setObjectName("RSS_LeftToolBar");
  connect(updateButton_, &QAbstractButton::clicked, this, &CRSS_LeftToolBarWnd::UpdateClicked);
}

void CRSS_LeftToolBarWnd::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
}

void CRSS_LeftToolBarWnd::resizeEvent(QResizeEvent* /*event*/) {
  const QSize size = updateButton_->sizeHint();
  updateButton_->setGeometry(QRect(QPoint(kFirstButtonLeft, (height() - size.height()) / 2), size));
}

}  // namespace feedloom
