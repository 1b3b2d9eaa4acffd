#pragma once

#include <QAbstractListModel>
#include <functional>
#include <vector>

#include "filter/FilterRule.h"

namespace feedloom {

// The rules of the filters dialog as rows, in the order in which they are applied. A row's check
// box turns its rule on and off, and rows can be dragged to another place. Interface thread only.
class RuleListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  // `title` gives the text of a rule's row.
  RuleListModel(std::vector<FilterRule> rules, std::function<QString(const FilterRule& rule)> title,
                QObject* parent);

  const std::vector<FilterRule>& Rules() const { return rules_; }

  // Inserts a rule before `row`, which is at most the number of rows.
  void Insert(int row, FilterRule rule);
  void Remove(int row);
  // Replaces the rule of `row`, but for whether it is on: that is the check box's.
  void Change(int row, FilterRule rule);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
  bool moveRows(const QModelIndex& from, int row, int count, const QModelIndex& to,
                int before) override;

 private:
  std::vector<FilterRule> rules_;
  const std::function<QString(const FilterRule& rule)> title_;
};

}  // namespace feedloom
