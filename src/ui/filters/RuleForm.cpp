#include "ui/filters/RuleForm.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <algorithm>
#include <iterator>

#include "controls/CVxComboBox.h"
#include "controls/CVxDialog.h"
#include "controls/CVxEdit.h"
#include "filter/FilterSet.h"
#include "look/SkinPalette.h"
#include "look/SkinText.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "ui/filters/ConditionRow.h"
#include "ui/filters/FilterNames.h"
#include "ui/filters/RuleTexts.h"

namespace feedloom {
namespace {

constexpr int kDeedGap = 20;

void AddRow(QFormLayout& rows, const Skin& skin, const char* labelKey, QWidget* field) {
  auto* const label = new QLabel(SkinText(skin, labelKey), field->parentWidget());
  label->setBuddy(field);  // also gives the field its accessible name
  rows.addRow(label, field);
}

}  // namespace

void ShowOutline(const Skin& skin, QWidget& widget) {
  constexpr int kToolkitDarkens = 140;  // per cent
  QPalette palette = widget.palette();
  palette.setColor(QPalette::Window, SkinColor(skin, kColorPaneLine).lighter(kToolkitDarkens));
  widget.setPalette(palette);
}

RuleForm::RuleForm(const Skin& skin, const FilterNames& names, QWidget* parent)
    : QWidget(parent),
      skin_(skin),
      name_(*new CVxEdit(skin, this)),
      place_(*new CVxComboBox(skin, ComboLook::Dialog, this)),
      conditionColumn_(*new QVBoxLayout),
      addCondition_(*new QToolButton(this)),
      marksRead_(*new QCheckBox(SkinText(skin, kTextFilterMarkRead), this)),
      deletes_(*new QCheckBox(SkinText(skin, kTextFilterDelete), this)),
      cabinet_(*new CVxComboBox(skin, ComboLook::Dialog, this)),
      notice_(*new CVxComboBox(skin, ComboLook::Dialog, this)),
      caution_(*new QLabel(this)) {
  Fill(names);
  LayOut();
  Connect();
}

void RuleForm::Fill(const FilterNames& names) {
  ListPlaces(place_, skin_, names);
  ListCabinets(cabinet_, skin_, names);
  notice_.addItems(NoticeTexts(skin_));
  for (QCheckBox* const box : {&marksRead_, &deletes_}) ShowOutline(skin_, *box);
  caution_.setTextFormat(Qt::PlainText);
  caution_.setWordWrap(true);
}

void RuleForm::LayOut() {
  auto* const rows = new QFormLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kDialogGap);
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  AddRow(*rows, skin_, kTextFilterName, &name_);
  AddRow(*rows, skin_, kTextFilterPlace, &place_);
  rows->addRow(new QLabel(SkinText(skin_, kTextFilterConditions), this));
  rows->addRow(ConditionArea());
  rows->addRow(DeedRow());
  AddRow(*rows, skin_, kTextFilterCabinet, &cabinet_);
  AddRow(*rows, skin_, kTextFilterNotice, &notice_);
  rows->addRow(&caution_);
}

QWidget* RuleForm::ConditionArea() {
  auto* const area = new QScrollArea(this);
  auto* const room = new QWidget(area);
  auto* const column = new QVBoxLayout(room);
  addCondition_.setText(SkinText(skin_, kTextFilterAddCondition));
  addCondition_.setFocusPolicy(Qt::TabFocus);
  column->addLayout(&conditionColumn_);
  column->addWidget(&addCondition_, 0, Qt::AlignLeft);
  column->addStretch();
  area->setAccessibleName(SkinText(skin_, kTextFilterConditions));
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(room);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  return area;
}

QLayout* RuleForm::DeedRow() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kDeedGap);
  row->addWidget(&marksRead_);
  row->addWidget(&deletes_);
  row->addStretch();
  return row;
}

void RuleForm::Connect() {
  connect(&addCondition_, &QAbstractButton::clicked, this, [this] {
    AddCondition({});
    OrderStops();
    OnEdit();
    conditions_.back()->FocusText();
  });
  connect(&name_, &QLineEdit::textChanged, this, &RuleForm::OnEdit);
  for (const CVxComboBox* box : {&place_, &cabinet_, &notice_}) {
    connect(box, &QComboBox::currentIndexChanged, this, &RuleForm::OnEdit);
  }
  for (const QCheckBox* box : {&marksRead_, &deletes_}) {
    connect(box, &QAbstractButton::toggled, this, &RuleForm::OnEdit);
  }
}

void RuleForm::Show(const std::optional<FilterRule>& rule) {
  isShowing_ = true;
  shown_ = rule.value_or(FilterRule());
  setEnabled(rule.has_value());
  name_.setText(QString::fromStdString(shown_.name));
  ShowPlace(place_, skin_, shown_);
  ClearConditions();
  for (const FilterCondition& condition : shown_.conditions) AddCondition(condition);
  OrderStops();
  marksRead_.setChecked(shown_.marksRead);
  deletes_.setChecked(shown_.deletes);
  ShowCabinet(cabinet_, skin_, shown_);
  notice_.setCurrentIndex(static_cast<int>(shown_.notice));
  caution_.setText(rule ? Caution(skin_, shown_) : QString());
  isShowing_ = false;
}

FilterRule RuleForm::Rule() const {
  FilterRule rule = shown_;
  rule.name = name_.TrimmedText().toStdString();
  TakePlace(place_, rule);
  rule.conditions.clear();
  for (const ConditionRow* row : conditions_) rule.conditions.push_back(row->Condition());
  rule.marksRead = marksRead_.isChecked();
  rule.deletes = deletes_.isChecked();
  TakeCabinet(cabinet_, rule);
  rule.notice = static_cast<FilterNotice>(notice_.currentIndex());
  return rule;
}

void RuleForm::FocusName() {
  name_.setFocus();
  name_.selectAll();
}

void RuleForm::FocusFault() {
  const auto faulty = std::ranges::find_if(
      conditions_, [](const ConditionRow* row) { return FaultOf(row->Condition()).has_value(); });
  if (faulty != conditions_.end()) (*faulty)->FocusText();
}

void RuleForm::AddCondition(const FilterCondition& condition) {
  auto* const row = new ConditionRow(skin_, condition, this);
  conditions_.push_back(row);
  conditionColumn_.addWidget(row);
  row->show();  // now: it may be given the keyboard
  connect(row, &ConditionRow::Edited, this, &RuleForm::OnEdit);
  connect(row, &ConditionRow::RemoveWanted, this, [this, row] { RemoveCondition(row); });
}

void RuleForm::RemoveCondition(ConditionRow* row) {
  std::erase(conditions_, row);
  row->hide();
  row->deleteLater();  // its button is still at work
  OnEdit();
}

void RuleForm::ClearConditions() {
  for (ConditionRow* const row : conditions_) {
    row->hide();
    row->deleteLater();
  }
  conditions_.clear();
}

// The rows of conditions are made later than what stands behind them.
void RuleForm::OrderStops() {
  std::vector<QWidget*> stops{&name_, &place_};
  for (const ConditionRow* const row : conditions_)
    std::ranges::copy(row->Stops(), std::back_inserter(stops));
  stops.insert(stops.end(), {&addCondition_, &marksRead_, &deletes_, &cabinet_, &notice_});
  for (std::size_t i = 1; i < stops.size(); ++i) setTabOrder(stops[i - 1], stops[i]);
}

void RuleForm::OnEdit() {
  if (isShowing_) return;
  const FilterRule rule = Rule();
  caution_.setText(Caution(skin_, rule));
  emit Edited();
}

}  // namespace feedloom
