#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

// The first page: whether channels are refreshed automatically, and how often. The interval is
// disabled while they are not.
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
