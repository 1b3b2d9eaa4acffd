#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QTreeView>
#include <functional>

#include "controls/UserPause.h"

namespace feedloom {

class GroupTreeModel;

// Hides the rows of a tree that have no unread posts. The model stays whole. The cabinets have
// their rows always, and so have the selected row and its group. A row that gets unread posts comes
// back at once; one that has none any more, or is left, goes when the user makes a pause, and what
// stays keeps its place in the view. Interface thread only.
class UnreadFilter : public QObject {
 public:
  // `tree` shows `model` and owns the object. While `isOnTheWay`, the rows that are in sight stay:
  // the list does not show the posts of the selected one yet.
  UnreadFilter(QTreeView& tree, const GroupTreeModel& model, std::function<bool()> isOnTheWay);

  // The filter is off at first.
  void Set(bool isOn);

  // Runs a change of many rows. With 10,000 hidden rows the view would take long for each removal,
  // so that they are shown meanwhile.
  void RunChange(const std::function<void()>& change);

  // How many rows of a group are not hidden.
  int CountShown(const QModelIndex& group) const;

 private:
  // The selected row and its group, either invalid without one. Asking the model for a row's group
  // takes too long to be done for each of 10,000 rows.
  struct Held {
    QModelIndex row;
    QModelIndex group;
  };

  Held HeldRows() const { return {selected_, selected_.parent()}; }
  bool Stays(const QModelIndex& row, const Held& held) const;
  bool Hide(int row, const QModelIndex& group, bool isHidden);
  bool HideRows();
  bool HideGroup(int number, const Held& held);
  void Show(const QModelIndex& row, const QModelIndex& group);
  void Follow(const QModelIndex& group, int first, int last);
  void OnInserted(const QModelIndex& group, int first, int last);
  void OnSelected();
  void AwaitPause();
  void Sweep();
  void KeepPlace(const std::function<bool()>& change);
  QModelIndex Anchor() const;

  QTreeView& tree_;
  const GroupTreeModel& model_;
  const std::function<bool()> isOnTheWay_;
  UserPause pause_{this, [this] { isOnTheWay_() ? pause_.start() : Sweep(); }};
  QPersistentModelIndex selected_;
  bool isOn_ = false;
};

}  // namespace feedloom
