#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

class CVxEdit;

// The fourth page: whether old posts are deleted automatically, and from what age in days. The age
// is disabled while they are not.
class CCtrlPanel04 : public CtrlPanelPage {
  Q_OBJECT

 public:
  CCtrlPanel04(const Skin& skin, QWidget* parent);

  void Show(const Settings& settings) override;
  // An age that is not a number is read as 0.
  void Read(Settings& settings) const override;

  // Moves the focus to the age and selects its text.
  void FocusDays();

 private:
  QButtonGroup* mode_;
  CVxEdit* days_;
};

}  // namespace feedloom
