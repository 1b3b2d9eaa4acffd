#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

// The first page: whether channels are refreshed by themselves, and how often. The second question
// is disabled while the answer to the first is no.
class CCtrlPanel01 : public CtrlPanelPage {
  Q_OBJECT

 public:
  CCtrlPanel01(const Skin& skin, QWidget* parent);

  void Show(const Settings& settings) override;
  void Read(Settings& settings) const override;

 private:
  QButtonGroup* mode_;
  QButtonGroup* interval_;
};

}  // namespace feedloom
