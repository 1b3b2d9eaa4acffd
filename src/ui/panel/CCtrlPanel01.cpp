#include "ui/panel/CCtrlPanel01.h"

#include <QButtonGroup>
#include <QLabel>

#include "controls/CVxRadioButton.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr RadioChoice kModes[] = {
    {kTextAutoUpdate, kPlaceAutoUpdate},
    {kTextDoNotAutoUpdate, kPlaceDoNotAutoUpdate},
};

constexpr RadioChoice kUpdateIntervals[] = {
    {kTextTime15, kPlaceUpdateTime15},
    {kTextTime30, kPlaceUpdateTime30},
    {kTextTime60, kPlaceUpdateTime60},
    {kTextTime120, kPlaceUpdateTime120},
};

}  // namespace

CCtrlPanel01::CCtrlPanel01(const Skin& skin, QWidget* parent) : CtrlPanelPage(skin, parent) {
  mode_ = AddRadios(*AddHeading(kTextAutoUpdateTitle, kPlaceAutoUpdateTitle), kModes);
  AddLine(kPlaceTab1Line);
  interval_ = AddRadios(*AddHeading(kTextUpdateTimeTitle, kPlaceUpdateTimeTitle), kUpdateIntervals);
  for (QAbstractButton* radio : interval_->buttons()) {
    connect(mode_->button(1), &QAbstractButton::toggled, radio, &QWidget::setDisabled);
  }
  Arrange();
}

void CCtrlPanel01::Show(const Settings& settings) {
  Choose(*mode_, settings.newFeedMode != 0 ? 1 : 0);
  Choose(*interval_, settings.newFeedDuration);
}

void CCtrlPanel01::Read(Settings& settings) const {
  ReadChoice(*mode_, settings.newFeedMode);
  ReadChoice(*interval_, settings.newFeedDuration);
}

}  // namespace feedloom
