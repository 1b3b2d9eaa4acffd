#include "ui/filters/RuleListModel.h"

#include <algorithm>
#include <utility>

namespace feedloom {

RuleListModel::RuleListModel(std::vector<FilterRule> rules,
                             std::function<QString(const FilterRule& rule)> title, QObject* parent)
    : QAbstractListModel(parent), rules_(std::move(rules)), title_(std::move(title)) {}

void RuleListModel::Insert(int row, FilterRule rule) {
  beginInsertRows({}, row, row);
  rules_.insert(rules_.begin() + row, std::move(rule));
  endInsertRows();
}

void RuleListModel::Remove(int row) {
  beginRemoveRows({}, row, row);
  rules_.erase(rules_.begin() + row);
  endRemoveRows();
}

void RuleListModel::Change(int row, FilterRule rule) {
  FilterRule& changed = rules_[static_cast<std::size_t>(row)];
  rule.isOn = changed.isOn;
  changed = std::move(rule);
  emit dataChanged(index(row), index(row), {Qt::DisplayRole, Qt::ToolTipRole});
}

int RuleListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rules_.size());
}

QVariant RuleListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const FilterRule& rule = rules_[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return title_(rule);
  if (role == Qt::CheckStateRole) return rule.isOn ? Qt::Checked : Qt::Unchecked;
  return {};
}

bool RuleListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::CheckStateRole) return false;
  rules_[static_cast<std::size_t>(index.row())].isOn = value.toInt() == Qt::Checked;
  emit dataChanged(index, index, {role});
  return true;
}

// Rows are dropped between others only, never on one.
Qt::ItemFlags RuleListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
         Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

bool RuleListModel::moveRows(const QModelIndex& from, int row, int count, const QModelIndex& to,
                             int before) {
  const int rows = rowCount();
  if (row < 0 || count != 1 || row >= rows || before < 0 || before > rows) return false;
  if (!beginMoveRows(from, row, row, to, before)) return false;
  const auto moved = rules_.begin() + row;
  before > row ? std::rotate(moved, moved + 1, rules_.begin() + before)
               : std::rotate(rules_.begin() + before, moved, moved + 1);
  endMoveRows();
  return true;
}

}  // namespace feedloom
