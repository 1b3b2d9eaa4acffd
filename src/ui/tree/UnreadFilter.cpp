#include "ui/tree/UnreadFilter.h"

#include <QScrollBar>
#include <utility>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

UnreadFilter::UnreadFilter(QTreeView& tree, const GroupTreeModel& model,
                           std::function<bool()> isOnTheWay)
    : QObject(&tree), tree_(tree), model_(model), isOnTheWay_(std::move(isOnTheWay)) {
  connect(&model, &QAbstractItemModel::modelReset, this, [this] {
    if (isOn_) Sweep();
  });
  connect(&model, &QAbstractItemModel::rowsInserted, this, &UnreadFilter::OnInserted);
  connect(&model, &QAbstractItemModel::rowsRemoved, this, &UnreadFilter::AwaitPause);
  connect(&model, &QAbstractItemModel::rowsMoved, this, &UnreadFilter::AwaitPause);
  connect(&model, &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
            if (roles.contains(GroupTreeModel::UnreadRole))
              Follow(first.parent(), first.row(), last.row());
          });
  connect(tree.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &UnreadFilter::OnSelected);
}

void UnreadFilter::Set(bool isOn) {
  isOn_ = isOn;
  pause_.stop();
  Sweep();
}

void UnreadFilter::RunChange(const std::function<void()>& change) {
  if (!isOn_) return change();
  KeepPlace([&] {
    isOn_ = false;
    HideRows();
    change();
    isOn_ = true;
    HideRows();
    return true;
  });
}

int UnreadFilter::CountShown(const QModelIndex& group) const {
  const int rows = model_.rowCount(group);
  if (!isOn_) return rows;
  int shown = 0;
  for (int row = 0; row < rows; ++row) shown += tree_.isRowHidden(row, group) ? 0 : 1;
  return shown;
}

bool UnreadFilter::Stays(const QModelIndex& row, const Held& held) const {
  if (!isOn_ || row == held.row || row == held.group) return true;
  if (const ChildRow* const child = model_.ChildAt(row)) {
    return child->kind == RowKind::Cabinet || child->unreadCount > 0;
  }
  const GroupRow& group = *model_.GroupAt(row);
  return group.kind == RowKind::CabinetRoot || group.unreadCount > 0;
}

bool UnreadFilter::Hide(int row, const QModelIndex& group, bool isHidden) {
  if (tree_.isRowHidden(row, group) == isHidden) return false;
  tree_.setRowHidden(row, group, isHidden);
  return true;
}

bool UnreadFilter::HideGroup(int number, const Held& held) {
  const QModelIndex group = model_.index(number, 0);
  bool hasChanged = Hide(number, {}, !Stays(group, held));
  for (int row = 0; row < model_.rowCount(group); ++row) {
    hasChanged |= Hide(row, group, !Stays(model_.index(row, 0, group), held));
  }
  return hasChanged;
}

void UnreadFilter::Show(const QModelIndex& row, const QModelIndex& group) {
  if (group.isValid()) Hide(group.row(), {}, false);
  Hide(row.row(), group, false);
}

void UnreadFilter::Follow(const QModelIndex& group, int first, int last) {
  if (!isOn_) return;
  const Held held = HeldRows();
  for (int row = first; row <= last; ++row) {
    const QModelIndex changed = model_.index(row, 0, group);
    Stays(changed, held) ? Show(changed, group) : AwaitPause();
  }
}

// Nobody has looked at a new row: it need not wait for a pause.
void UnreadFilter::OnInserted(const QModelIndex& group, int first, int last) {
  if (!isOn_) return;
  for (int row = first; row <= last; ++row) {
    Hide(row, group, !Stays(model_.index(row, 0, group), HeldRows()));
  }
}

// A hidden row is selected when the window shows again what it showed last, or a step was undone.
void UnreadFilter::OnSelected() {
  selected_ = tree_.selectionModel()->selectedIndexes().value(0);
  if (!isOn_) return;
  const auto [row, group] = HeldRows();
  if (row.isValid() && tree_.isRowHidden(row.row(), group)) {
    Show(row, group);
    tree_.scrollTo(row);
  }
  pause_.start();
}

// Does not wait longer because more rows change, as they do all the time during a refresh.
void UnreadFilter::AwaitPause() {
  if (isOn_ && !pause_.isActive()) pause_.start();
}

void UnreadFilter::Sweep() {
  KeepPlace([this] { return HideRows(); });
}

// Returns whether that has changed anything, as the next do.
bool UnreadFilter::HideRows() {
  const Held held = HeldRows();
  bool hasChanged = false;
  for (int group = 0; group < model_.rowCount(); ++group) hasChanged |= HideGroup(group, held);
  return hasChanged;
}

// `change` tells whether it has changed anything.
void UnreadFilter::KeepPlace(const std::function<bool()>& change) {
  const QPersistentModelIndex anchor = Anchor();
  const int before = tree_.visualRect(anchor).top();
  if (!change()) return;
  tree_.doItemsLayout();
  if (!anchor.isValid()) return;
  QScrollBar& bar = *tree_.verticalScrollBar();
  bar.setValue(bar.value() + tree_.visualRect(anchor).top() - before);
}

// The row that keeps its place: the selected one, or the first one in sight that stays.
QModelIndex UnreadFilter::Anchor() const {
  const QRect sight = tree_.viewport()->rect();
  if (tree_.visualRect(selected_).intersects(sight)) return selected_;
  const Held held = HeldRows();
  QModelIndex row = tree_.indexAt({0, 0});
  while (row.isValid() && !Stays(row, held)) row = tree_.indexBelow(row);
  return row;
}

}  // namespace feedloom
