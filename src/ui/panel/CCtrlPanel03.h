#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

// The third page: whether a post is shown as a generated page or as its web page. Each choice has a
// sample image, and a click on the image selects the choice.
class CCtrlPanel03 : public CtrlPanelPage {
  Q_OBJECT

 public:
  CCtrlPanel03(const Skin& skin, QWidget* parent);

  void Show(const Settings& settings) override;
  void Read(Settings& settings) const override;

 private:
  void AddChoice(const RadioChoice& choice, const char* sampleKey);

  QButtonGroup* mode_;
};

}  // namespace feedloom
