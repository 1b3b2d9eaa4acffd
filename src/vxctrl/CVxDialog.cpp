#include "vxctrl/CVxDialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QVBoxLayout>
#include <memory>

#include "skin/Keys.h"
#include "skin/Skin.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/QtText.h"
#include "vxctrl/SkinFont.h"
#include "vxctrl/SkinText.h"

namespace feedloom {
namespace {

constexpr int kMargin = 20;
constexpr int kRowGap = 8;
constexpr int kLabelGap = 12;
constexpr int kButtonGap = 8;
constexpr int kFieldWidth = 240;

}  // namespace

CVxDialog::CVxDialog(const Skin& skin, const char* titleKey, QWidget* parent)
    : QDialog(parent), skin_(skin), column_(new QVBoxLayout(this)), rows_(new QFormLayout) {
  setWindowTitle(titleKey ? Text(titleKey)
                          : ToQString(skin.Config().GetCodePage(), skin.Config().GetAppTitle()));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));

  column_->setSizeConstraint(QLayout::SetFixedSize);
  column_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column_->setSpacing(kMargin);
  column_->addLayout(rows_);
  rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows_->setRowWrapPolicy(QFormLayout::DontWrapRows);
  rows_->setLabelAlignment(Qt::AlignLeft);
  rows_->setHorizontalSpacing(kLabelGap);
  rows_->setVerticalSpacing(kRowGap);
}

QString CVxDialog::Text(const char* key) const { return SkinText(skin_, key); }

void CVxDialog::AddRow(const char* labelKey, QWidget* field) {
  field->setMinimumWidth(kFieldWidth);
  if (rows_->rowCount() == 0) field->setFocus();
  rows_->addRow(Text(labelKey), field);
}

CVxEdit* CVxDialog::AddEdit(const char* labelKey) {
  auto* edit = new CVxEdit(skin_, this);
  AddRow(labelKey, edit);
  return edit;
}

CVxComboBox* CVxDialog::AddComboBox(const char* labelKey) {
  auto* box = new CVxComboBox(skin_, ComboLook::Dialog, this);
  AddRow(labelKey, box);
  return box;
}

CButtonEx* CVxDialog::MakeButton(const char* section, const char* imageKey, const char* textKey) {
  auto* button = new CButtonEx(skin_.GetImagePath(section, imageKey), this);
  button->setText(Text(textKey));
  button->setAccessibleName(button->text());
  return button;
}

void CVxDialog::AddButtons(const char* section, const char* confirmKey, const char* cancelKey) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kButtonGap);
  row->addStretch();
  confirm_ = MakeButton(section, confirmKey, kTextOk);
  connect(confirm_, &QAbstractButton::clicked, this, &QDialog::accept);
  row->addWidget(confirm_);
  if (cancelKey) {
    auto* cancel = MakeButton(section, cancelKey, kTextCancel);
    connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
    row->addWidget(cancel);
  }
  row->addStretch();
  column_->addLayout(row);
}

void CVxDialog::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || !confirm_) return QDialog::keyPressEvent(event);
  if (!event->isAutoRepeat()) confirm_->click();
}

bool RunDialog(CVxDialog* dialog, const std::function<void()>& read) {
  const QPointer<CVxDialog> guard(dialog);
  const int result = dialog->exec();
  const std::unique_ptr<CVxDialog> owner(guard.data());
  if (!owner || result != QDialog::Accepted) return false;
  read();
  return true;
}

}  // namespace feedloom
