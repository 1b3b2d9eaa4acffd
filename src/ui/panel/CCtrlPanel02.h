#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

class CVxSlider;

// The second page: how often notices of new posts appear, and how transparent their window is.
class CCtrlPanel02 : public CtrlPanelPage {
  Q_OBJECT

 public:
  CCtrlPanel02(const Skin& skin, QWidget* parent);

  void Show(const Settings& settings) override;
  void Read(Settings& settings) const override;

 private:
  // Makes the slider with a label below each of its ends.
  QWidget* MakeSliderWithEnds();

  QButtonGroup* interval_;
  CVxSlider* transparency_;
};

}  // namespace feedloom
