#include "ui/filters/CRSS_FilterDlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <algorithm>
#include <utility>

#include "controls/CButtonEx.h"
#include "controls/OnKey.h"
#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "store/Filters.h"
#include "ui/Desk.h"
#include "ui/filters/FilterNames.h"
#include "ui/filters/RuleForm.h"
#include "ui/filters/RuleListModel.h"
#include "ui/filters/RuleTexts.h"

namespace feedloom {
namespace {

constexpr QSize kFirstSize(860, 520);

FilterRule NewRule() { return {.conditions = {FilterCondition()}}; }

}  // namespace

CRSS_FilterDlg::CRSS_FilterDlg(Desk& desk, std::shared_ptr<Store> store,
                               BackgroundJobs::Post toHere, const FilterNames& names,
                               std::vector<FilterRule> rules, QWidget* parent)
    : CVxDialog(desk.GetSkin(), kTextFiltersTitle, parent),
      desk_(desk),
      before_(std::move(rules)),
      rules_(*new RuleListModel(
          before_, [this](const FilterRule& rule) { return RuleTitle(GetSkin(), rule); }, this)),
      list_(*new QListView(this)),
      form_(*new RuleForm(GetSkin(), names, this)),
      line_(*new QLabel(this)),
      store_(std::move(store)),
      posts_(store_, std::move(toHere)) {
  SetUpList();
  LayOut();
  Connect();
  resize(kFirstSize);
  rules_.rowCount() > 0 ? Choose(0) : ShowChosen();
  list_.setFocus();
}

// The list of rules.

void CRSS_FilterDlg::SetUpList() {
  list_.setAccessibleName(SkinText(GetSkin(), kTextFilterList));
  list_.setModel(&rules_);
  ShowOutline(GetSkin(), list_);
  list_.setDragDropMode(QAbstractItemView::InternalMove);
  list_.setDefaultDropAction(Qt::MoveAction);
  list_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_.setUniformItemSizes(true);
  list_.setToolTip(SkinText(GetSkin(), kTextFilterOrder));
  list_.setAccessibleDescription(list_.toolTip());
  OnKey(list_, Qt::ALT | Qt::Key_Up, [this] { Move(-1); });
  OnKey(list_, Qt::ALT | Qt::Key_Down, [this] { Move(1); });
  OnKey(list_, Qt::Key_Delete, [this] { Remove(); });
}

QWidget* CRSS_FilterDlg::ListSide() {
  auto* const side = new QWidget(this);
  auto* const add = MakeButton(kSectionDirectory, kButtonDirectoryClose, kTextFilterAdd);
  copy_ = MakeButton(kSectionDirectory, kButtonDirectoryClose, kTextFilterCopy);
  remove_ = MakeButton(kSectionDirectory, kButtonDirectoryClose, kTextFilterRemove);
  connect(add, &QAbstractButton::clicked, this, &CRSS_FilterDlg::Add);
  connect(copy_, &QAbstractButton::clicked, this, &CRSS_FilterDlg::Copy);
  connect(remove_, &QAbstractButton::clicked, this, &CRSS_FilterDlg::Remove);
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(kDialogGap);
  QWidget* before = &list_;  // the form was made before the buttons
  for (CButtonEx* const button : {add, copy_, remove_}) {
    buttons->addWidget(button);
    setTabOrder(std::exchange(before, button), button);
  }
  buttons->addStretch();
  auto* const column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kDialogGap);
  column->addWidget(&list_, 1);
  column->addLayout(buttons);
  return side;
}

QWidget* CRSS_FilterDlg::RuleSide() {
  auto* const side = new QWidget(this);
  apply_ = MakeButton(kSectionDirectory, kButtonDirectoryClose, kTextFilterApply);
  line_.setTextFormat(Qt::PlainText);
  auto* const bottom = new QHBoxLayout;
  bottom->setSpacing(kDialogGap);
  bottom->addWidget(&line_, 1);
  bottom->addWidget(apply_);
  auto* const column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kDialogGap);
  column->addWidget(&form_, 1);
  column->addLayout(bottom);
  return side;
}

void CRSS_FilterDlg::LayOut() {
  auto* const sides = new QHBoxLayout;
  sides->setSpacing(kDialogMargin);
  sides->addWidget(ListSide(), 1);
  sides->addWidget(RuleSide(), 2);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  column->setSpacing(kDialogMargin);
  column->addLayout(sides, 1);
  column->addLayout(MakeButtonRow(kSectionMsgBox, kButtonOk, kButtonCancel));
}

void CRSS_FilterDlg::Connect() {
  connect(list_.selectionModel(), &QItemSelectionModel::currentChanged, this,
          &CRSS_FilterDlg::ShowChosen);
  connect(&form_, &RuleForm::Edited, this, &CRSS_FilterDlg::TakeEdit);
  connect(apply_, &QAbstractButton::clicked, this, &CRSS_FilterDlg::AskToApply);
  count_.setSingleShot(true);
  connect(&count_, &QTimer::timeout, this, &CRSS_FilterDlg::BeginCount);
}

std::optional<int> CRSS_FilterDlg::Chosen() const {
  const QModelIndex row = list_.currentIndex();
  return row.isValid() ? std::optional(row.row()) : std::nullopt;
}

const FilterRule& CRSS_FilterDlg::RuleAt(int row) const {
  return rules_.Rules()[static_cast<std::size_t>(row)];
}

void CRSS_FilterDlg::Choose(int row) { list_.setCurrentIndex(rules_.index(row)); }

void CRSS_FilterDlg::ShowChosen() {
  const auto row = Chosen();
  copy_->setEnabled(row.has_value());
  remove_->setEnabled(row.has_value());
  form_.Show(row ? std::optional(RuleAt(*row)) : std::nullopt);
  count_.start(0);
}

void CRSS_FilterDlg::TakeEdit() {
  if (const auto row = Chosen()) rules_.Change(*row, form_.Rule());
  count_.start(0);
}

void CRSS_FilterDlg::Add() {
  const int row = Chosen().value_or(rules_.rowCount() - 1) + 1;
  rules_.Insert(row, NewRule());
  Choose(row);
  form_.FocusName();
}

void CRSS_FilterDlg::Copy() {
  const auto row = Chosen();
  if (!row) return;
  rules_.Insert(*row + 1, RuleAt(*row));
  Choose(*row + 1);
  form_.FocusName();
}

void CRSS_FilterDlg::Remove() {
  const auto row = Chosen();
  if (!row) return;
  rules_.Remove(*row);
  ShowChosen();
  list_.setFocus();
}

void CRSS_FilterDlg::Move(int steps) {
  const auto row = Chosen();
  if (row) rules_.moveRow({}, *row, {}, steps > 0 ? *row + 1 + steps : *row + steps);
}

// The stored posts that the rule meets.

std::string CRSS_FilterDlg::CountText(int count) const {
  return WithNumbers(GetSkin().GetText(kSectionTexts, kTextFilterCount), {count});
}

void CRSS_FilterDlg::BeginCount() {
  counted_.reset();
  apply_->setEnabled(false);
  posts_.StopAll();
  const auto row = Chosen();
  if (!row) return Say(SkinText(GetSkin(), kTextFilterNone));
  const FilterRule& rule = RuleAt(*row);
  if (IsFaulty(rule)) return Say({});
  Say(SkinText(GetSkin(), kTextFilterCounting));
  posts_.Count(rule, [this](std::optional<int> count) { ShowCount(count); });
}

void CRSS_FilterDlg::ShowCount(std::optional<int> count) {
  counted_ = count;
  if (!count) return Say(SkinText(GetSkin(), kTextFilterNotCounted));
  Say(ToQString(GetSkin().Config().GetCodePage(), CountText(*count)));
  apply_->setEnabled(*count > 0 && ChangesPosts(form_.Rule()));
}

void CRSS_FilterDlg::AskToApply() {
  const auto row = Chosen();
  if (!row || !counted_) return;
  const FilterRule rule = RuleAt(*row);
  const char* const key = rule.deletes ? kTextFilterAskDelete : kTextFilterAskApply;
  const QPointer self(this);
  const auto answer = desk_.Ask(key, CountText(*counted_), MsgBoxKind::YesNo);
  if (self && answer == MsgBoxAnswer::Consented) Apply(rule);
}

// What was applied when the dialog is closed meanwhile stays.
void CRSS_FilterDlg::Apply(const FilterRule& rule) {
  SetWorking(true);
  Say(SkinText(GetSkin(), kTextFilterApplying));
  posts_.Apply(rule, [this](const auto& sums) { ShowSums(sums); });
}

void CRSS_FilterDlg::SetWorking(bool isWorking) {
  list_.parentWidget()->setEnabled(!isWorking);
  form_.setEnabled(!isWorking);
  apply_->setEnabled(false);
  ConfirmButton()->setEnabled(!isWorking);
  if (!isWorking) list_.setFocus();
}

void CRSS_FilterDlg::ShowSums(const std::optional<FilterSums>& sums) {
  SetWorking(false);
  const char* const key = sums ? kTextFilterApplied : kTextFilterNotApplied;
  std::string text = GetSkin().GetText(kSectionTexts, key);
  if (sums) text = WithNumbers(text, {sums->read, sums->deleted, sums->saved});
  desk_.ReportMessage(text);
  Say(ToQString(GetSkin().Config().GetCodePage(), text));
}

void CRSS_FilterDlg::Say(const QString& line) {
  line_.setText(line);
  apply_->setAccessibleDescription(line);
}

// OK.

bool CRSS_FilterDlg::AreRulesRight() {
  const auto faulty = FirstFaulty(rules_.Rules());
  if (!faulty) return true;
  Choose(*faulty);
  form_.FocusFault();
  desk_.ShowTextMessage(kSectionTexts, kTextFilterFaulty, MsgBoxKind::Notice);
  return false;
}

// Asks of each rule that deletes all posts it is on for.
bool CRSS_FilterDlg::IsDeletingWanted() {
  for (int row = 0; row < rules_.rowCount(); ++row) {
    if (!RuleAt(row).isOn || !DeletesAll(RuleAt(row))) continue;
    Choose(row);
    const QPointer self(this);
    const std::string title =
        FromQString(GetSkin().Config().GetCodePage(), RuleTitle(GetSkin(), RuleAt(row)));
    const auto answer = desk_.Ask(kTextFilterAskDeletesAll, title, MsgBoxKind::YesNo);
    if (!self || answer != MsgBoxAnswer::Consented) return false;
  }
  return true;
}

void CRSS_FilterDlg::accept() {
  if (rules_.Rules() == before_) return CVxDialog::accept();
  if (!AreRulesRight() || !IsDeletingWanted()) return;  // the dialog may be gone
  if (SaveFilters(*store_, rules_.Rules())) return CVxDialog::accept();
  desk_.ShowTextMessage(kSectionTexts, kTextFilterNotSaved, MsgBoxKind::Notice);
}

}  // namespace feedloom
