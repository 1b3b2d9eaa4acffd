#include "controls/CVxFormDialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/CButtonEx.h"
#include "controls/CVxComboBox.h"
#include "controls/CVxEdit.h"
#include "look/SkinText.h"

namespace feedloom {
namespace {

constexpr int kLabelGap = 12;
constexpr int kFieldWidth = 240;
constexpr int kWidestText = 360;
constexpr int kTextIndent = 8;  // that of the texts in edit boxes

}  // namespace

CVxFormDialog::CVxFormDialog(const Skin& skin, const char* titleKey, QWidget* parent)
    : CVxDialog(skin, titleKey, parent), column_(new QVBoxLayout(this)), rows_(new QFormLayout) {
  column_->setSizeConstraint(QLayout::SetFixedSize);
  column_->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  column_->setSpacing(kDialogMargin);
  column_->addLayout(rows_);
  rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows_->setRowWrapPolicy(QFormLayout::DontWrapRows);
  rows_->setLabelAlignment(Qt::AlignLeft);
  rows_->setHorizontalSpacing(kLabelGap);
  rows_->setVerticalSpacing(kDialogGap);
}

void CVxFormDialog::AddRow(const char* labelKey, QWidget* field, CButtonEx* beside) {
  field->setMinimumWidth(kFieldWidth);
  if (rows_->rowCount() == 0) field->setFocus();
  auto* const label = new QLabel(SkinText(GetSkin(), labelKey), this);
  label->setBuddy(field);  // also gives the field its accessible name
  stops_.push_back(field);
  if (beside == nullptr) return rows_->addRow(label, field);
  stops_.push_back(beside);
  auto* const row = new QHBoxLayout;
  row->setSpacing(kDialogGap);
  row->addWidget(field, 1);
  row->addWidget(beside);
  rows_->addRow(label, row);
}

QWidget* CVxFormDialog::AddBelow() {
  auto* const field = new QWidget(this);
  rows_->addRow(QString(), field);
  return field;
}

CVxEdit* CVxFormDialog::AddEdit(const char* labelKey, CButtonEx* beside) {
  auto* edit = new CVxEdit(GetSkin(), this);
  AddRow(labelKey, edit, beside);
  return edit;
}

void CVxFormDialog::AddText(const char* labelKey, const QString& text) {
  auto* const shown = new QLabel(text, this);
  shown->setTextFormat(Qt::PlainText);
  shown->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  shown->setWordWrap(true);
  shown->setContentsMargins(kTextIndent, 0, 0, 0);
  AddRow(labelKey, shown);
  // A screen reader reads the label as a buddy's text, and texts in the order of the widgets.
  static_cast<QLabel*>(rows_->labelForField(shown))->setBuddy(nullptr);
  shown->raise();
  const int inLines = shown->fontMetrics().size(0, text).width();
  const int width = std::clamp(inLines + kTextIndent, kFieldWidth, kWidestText);
  shown->setFixedSize(width, shown->heightForWidth(width));
}

CVxComboBox* CVxFormDialog::AddComboBox(const char* labelKey, CButtonEx* beside) {
  auto* box = new CVxComboBox(GetSkin(), ComboLook::Dialog, this);
  AddRow(labelKey, box, beside);
  return box;
}

CButtonEx* CVxFormDialog::AddButtons(const char* section, const char* confirmKey,
                                     const char* cancelKey) {
  column_->addLayout(MakeButtonRow(section, confirmKey, cancelKey));
  // The default tab order is that of creation, and a button beside a field is created before it.
  stops_.push_back(ConfirmButton());
  for (std::size_t i = 1; i < stops_.size(); ++i) setTabOrder(stops_[i - 1], stops_[i]);
  return ConfirmButton();
}

}  // namespace feedloom
