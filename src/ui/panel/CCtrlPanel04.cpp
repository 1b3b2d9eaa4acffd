#include "ui/panel/CCtrlPanel04.h"

#include <QButtonGroup>
#include <QLabel>

#include "controls/CVxEdit.h"
#include "controls/CVxRadioButton.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "text/Text.h"

namespace feedloom {

CCtrlPanel04::CCtrlPanel04(const Skin& skin, QWidget* parent)
    : CtrlPanelPage(skin, parent), mode_(NewGroup()) {
  AddRadio(*mode_, {kTextDelete, kPlaceDelete});
  days_ = new CVxEdit(skin, this);
  days_->setAccessibleName(SkinText(skin, kTextDeleteDays));
  Add(days_, kPlaceDeleteDays);
  AddText(SkinText(skin, kTextDeleteUnit), kPlaceDeleteUnit);
  AddText(SkinText(skin, kTextDeleteInfo).replace("<br>", "\n"), kPlaceDeleteInfo);
  AddLine(kPlaceTab4Line);
  const auto* const never = AddRadio(*mode_, {kTextDoNotDelete, kPlaceDoNotDelete});
  connect(never, &QAbstractButton::toggled, days_, &QWidget::setDisabled);
  Arrange();
}

void CCtrlPanel04::Show(const Settings& settings) {
  Choose(*mode_, settings.feedDeleteMode != 0 ? 1 : 0);
  days_->setText(QString::number(settings.feedDeleteDate));
}

void CCtrlPanel04::Read(Settings& settings) const {
  ReadChoice(*mode_, settings.feedDeleteMode);
  settings.feedDeleteDate = ParseInt(days_->text().toStdString());
}

void CCtrlPanel04::FocusDays() {
  days_->setFocus();
  days_->selectAll();
}

}  // namespace feedloom
