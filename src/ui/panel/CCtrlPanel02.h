#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

class CVxSlider;

// The second page: how often new posts are announced, and how transparent the window is that does.
class CCtrlPanel02 : public CtrlPanelPage {
  Q_OBJECT

 public:
  CCtrlPanel02(const Skin& skin, QWidget* parent);

  void Show(const Settings& settings) override;
  void Read(Settings& settings) const override;

 private:
  // The slider with the words for its two ends below it.
  QWidget* MakeSliderWithEnds();

  QButtonGroup* interval_;
  CVxSlider* transparency_;
};

}  // namespace feedloom
