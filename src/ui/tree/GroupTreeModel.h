// The tree's rows as an item model: groups, and under them channels or cabinets.
#pragma once

#include <QAbstractItemModel>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/CodePage.h"
#include "store/Rows.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

// What the tree is loaded with, each list in the order of its rows.
struct TreeContent {
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;  // of all folders
  std::vector<CabinetRow> cabinets;
  std::string cabinetTitle;  // the cabinet root's name
  int unreadInCabinets = 0;
};

// One column. Qt::DisplayRole is the label on one line; what is too long to be seen is cut off its
// name. An operation that names a channel that is not there changes nothing.
class GroupTreeModel : public QAbstractItemModel {
 public:
  enum Role {
    KindRole = Qt::UserRole,  // int: RowKind
    NameRole,                 // QString: the label without its count
    UnreadRole,               // int
    StateRole,                // int
    IsNewRole,                // bool
  };

  explicit GroupTreeModel(CodePage codePage, QObject* parent = nullptr);
  ~GroupTreeModel() override;

  // Replaces all rows. The cabinet root comes last; a channel whose folder is not there is left
  // out, and a negative count (the store could not tell) is 0.
  void Load(TreeContent content);

  const GroupRows& Groups() const { return groups_; }
  // Null for an index of the other level. The record is gone with the next change of the rows.
  const GroupRow* GroupAt(const QModelIndex& index) const;
  const ChildRow* ChildAt(const QModelIndex& index) const;
  // Not valid when there is none. Takes the same time whatever the number of channels.
  QModelIndex FindChannel(int channelId) const;

  // The difference to the count before, by which the folder's count changes too. A negative count
  // changes nothing.
  int SetChannelUnread(int channelId, int count);
  // One unread post less in the row and in its group; never below 0.
  void LowerChannelUnread(int channelId);
  void LowerCabinetUnread(int cabinetId);
  void SetChannelNew(int channelId, bool isNew);
  void SetChannelState(int channelId, int state);

  // Puts the channel behind the last one of its folder and its unread posts into the folder's
  // count. False, and nothing changes, when the channel is there already or its folder is not.
  bool AppendChannel(ChannelRow channel);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  struct Place {
    GroupRow* group;
    int row;
  };

  void FillGroups(TreeContent content);
  QModelIndex IndexOf(const GroupRow& group) const;
  QModelIndex FindCabinet(int cabinetId) const;
  ChildRow* MutableChildAt(const QModelIndex& index);
  // Both also change the group's count.
  int SetUnread(const QModelIndex& child, int count);
  void LowerUnread(const QModelIndex& child);
  QVariant GroupData(const GroupRow& group, int role) const;
  QVariant ChildData(const ChildRow& child, int role) const;
  QString ShownName(const std::string& name) const;
  QString ShownLabel(const std::string& name, int unreadCount) const;

  const CodePage codePage_;
  // A group's index has no internal pointer, a child's has its GroupRow.
  GroupRows groups_;
  std::unordered_map<int, Place> channels_;  // by channel id
};

}  // namespace feedloom
