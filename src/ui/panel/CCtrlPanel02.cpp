#include "ui/panel/CCtrlPanel02.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>

#include "controls/CVxSlider.h"
#include "look/SkinText.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr int kPercent = 100;
constexpr int kEndsGap = 12;

constexpr RadioChoice kNoticeIntervals[] = {
    {kTextTime15, kPlaceNoticeTime15},
    {kTextTime30, kPlaceNoticeTime30},
    {kTextTime60, kPlaceNoticeTime60},
    {kTextTimeNever, kPlaceNoticeTimeOff},
};

}  // namespace

CCtrlPanel02::CCtrlPanel02(const Skin& skin, QWidget* parent) : CtrlPanelPage(skin, parent) {
  interval_ = AddRadios(*AddHeading(kTextNoticeTimeTitle, kPlaceNoticeTimeTitle), kNoticeIntervals);
  AddLine(kPlaceTab2Line);
  AddHeading(kTextTransparencyTitle, kPlaceTransparencyTitle);
  Add(MakeSliderWithEnds(), kPlaceTransparency);
  Arrange();
}

QWidget* CCtrlPanel02::MakeSliderWithEnds() {
  auto* const box = new QWidget(this);
  auto* const grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kEndsGap);
  grid->setVerticalSpacing(0);
  transparency_ = new CVxSlider(GetSkin(), box);
  transparency_->setRange(0, kPercent);
  transparency_->setAccessibleName(SkinText(GetSkin(), kTextTransparencyTitle));
  grid->addWidget(transparency_, 0, 0, 1, 2);
  grid->addWidget(MakeLabel(SkinText(GetSkin(), kTextTransparencyLeft), box), 1, 0, Qt::AlignLeft);
  grid->addWidget(MakeLabel(SkinText(GetSkin(), kTextTransparencyRight), box), 1, 1,
                  Qt::AlignRight);
  return box;
}

void CCtrlPanel02::Show(const Settings& settings) {
  Choose(*interval_, settings.newFeedMsgDuration);
  transparency_->setValue(settings.newFeedMsgTransparency);
}

void CCtrlPanel02::Read(Settings& settings) const {
  ReadChoice(*interval_, settings.newFeedMsgDuration);
  settings.newFeedMsgTransparency = transparency_->value();
}

}  // namespace feedloom
