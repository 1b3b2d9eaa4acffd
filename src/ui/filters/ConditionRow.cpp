#include "ui/filters/ConditionRow.h"

#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

#include "controls/CVxComboBox.h"
#include "controls/CVxDialog.h"
#include "controls/CVxEdit.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/filters/RuleTexts.h"

namespace feedloom {
namespace {

constexpr int kFieldWidth = 92;
constexpr int kTestWidth = 150;

}  // namespace

ConditionRow::ConditionRow(const Skin& skin, const FilterCondition& condition, QWidget* parent)
    : QWidget(parent),
      skin_(skin),
      field_(*new CVxComboBox(skin, ComboLook::Dialog, this)),
      test_(*new CVxComboBox(skin, ComboLook::Dialog, this)),
      text_(*new CVxEdit(skin, this)),
      remove_(*new QToolButton(this)),
      fault_(*new QLabel(this)) {
  SetUp(condition);
  LayOut();
  Check();
  connect(&field_, &QComboBox::currentIndexChanged, this, &ConditionRow::Edited);
  connect(&test_, &QComboBox::currentIndexChanged, this, &ConditionRow::Edited);
  connect(&text_, &QLineEdit::textChanged, this, &ConditionRow::Edited);
  connect(this, &ConditionRow::Edited, this, &ConditionRow::Check);
  connect(&remove_, &QAbstractButton::clicked, this, &ConditionRow::RemoveWanted);
}

void ConditionRow::SetUp(const FilterCondition& condition) {
  field_.addItems(FieldTexts(skin_));
  field_.setCurrentIndex(static_cast<int>(condition.field));
  field_.setAccessibleName(SkinText(skin_, kTextFilterField));
  test_.addItems(TestTexts(skin_));
  test_.setCurrentIndex(static_cast<int>(condition.test));
  test_.setAccessibleName(SkinText(skin_, kTextFilterTest));
  text_.setText(QString::fromStdString(condition.text));
  text_.setAccessibleName(SkinText(skin_, kTextFilterText));
  remove_.setText(QString(QChar(0x2212)));  // a minus sign
  remove_.setAutoRaise(true);
  remove_.setFocusPolicy(Qt::TabFocus);
  remove_.setToolTip(SkinText(skin_, kTextFilterRemoveCondition));
  remove_.setAccessibleName(remove_.toolTip());
  fault_.setTextFormat(Qt::PlainText);
  fault_.setWordWrap(true);
}

void ConditionRow::LayOut() {
  field_.setFixedWidth(kFieldWidth);
  test_.setFixedWidth(kTestWidth);
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kDialogGap);
  grid->setVerticalSpacing(2);
  grid->addWidget(&field_, 0, 0);
  grid->addWidget(&test_, 0, 1);
  grid->addWidget(&text_, 0, 2);
  grid->addWidget(&remove_, 0, 3);
  grid->addWidget(&fault_, 1, 0, 1, 4);
  grid->setColumnStretch(2, 1);
}

FilterCondition ConditionRow::Condition() const {
  return {.field = static_cast<FilterField>(field_.currentIndex()),
          .test = static_cast<FilterTest>(test_.currentIndex()),
          .text = text_.text().toStdString()};
}

std::vector<QWidget*> ConditionRow::Stops() const { return {&field_, &test_, &text_, &remove_}; }

void ConditionRow::FocusText() { text_.setFocus(); }

void ConditionRow::Check() {
  fault_.setText(FaultText(skin_, Condition()));
  fault_.setVisible(!fault_.text().isEmpty());
  text_.setAccessibleDescription(fault_.text());
}

}  // namespace feedloom
