#pragma once

#include "ui/panel/CtrlPanelPage.h"

namespace feedloom {

class CVxEdit;

// The fourth page: whether old posts are deleted by themselves, and from which age on. The age is
// disabled while they are not.
class CCtrlPanel04 : public CtrlPanelPage {
  Q_OBJECT

 public:
  CCtrlPanel04(const Skin& skin, QWidget* parent);

  void Show(const Settings& settings) override;
  // A text that is no number is an age of 0.
  void Read(Settings& settings) const override;

  // Gives the keyboard to the age, its text selected.
  void FocusDays();

 private:
  QButtonGroup* mode_;
  CVxEdit* days_;
};

}  // namespace feedloom
