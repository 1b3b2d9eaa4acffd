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

// What rows say beside their names; in the module's code page.
struct RowTexts {
  std::string downloadFailed;  // why a channel's last refresh failed
  std::string documentRefused;
  // To a screen reader, behind the name:
  std::string unread = {};  // "%d" stands for the count
  std::string isNew = {};
  std::string isFailing = {};
};

// One column. Qt::DisplayRole is the label on one line; what is too long to be seen is cut off its
// name. Qt::ToolTipRole is the name as markup, with the reason when the last refresh failed. A
// screen reader gets all that the row shows in words, the reason as the description. An operation
// that names a row that is not there changes nothing.
class GroupTreeModel : public QAbstractItemModel {
 public:
  enum Role {
    KindRole = Qt::UserRole,  // int: RowKind
    NameRole,                 // QString: the label without its count
    UnreadRole,               // int
    StateRole,                // int
    IsNewRole,                // bool
    IsAnimatedByMessageRole,  // bool
  };

  GroupTreeModel(CodePage codePage, RowTexts texts, QObject* parent = nullptr);
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
  // New counts of many rows at once, and the channels' states. Rows that are not named, and those
  // with a negative count, keep their count.
  void SetChannelCounts(const std::vector<FolderRow>& folders,
                        const std::vector<ChannelRow>& channels);
  void SetCabinetCounts(int unreadInCabinets, const std::vector<CabinetRow>& cabinets);
  // One unread post more in the cabinet root and, when it is there, in the cabinet.
  void RaiseCabinetUnread(int cabinetId);
  // One unread post less in the row and in its group; never below 0.
  void LowerChannelUnread(int channelId);
  void LowerCabinetUnread(int cabinetId);
  void SetChannelNew(int channelId, bool isNew);
  // The same when a message asks for it: from then on the row has the messages' animation.
  void SetChannelNewByMessage(int channelId, bool isNew);
  void SetChannelState(int channelId, int state);

  // A folder goes behind the last one, a cabinet too; a row that is there already stays as it is.
  void AppendFolder(FolderRow folder);
  void AppendCabinet(CabinetRow cabinet);
  // Puts the channel behind the last one of its folder and its unread posts into the folder's
  // count. False, and nothing changes, when the channel is there already or its folder is not.
  bool AppendChannel(ChannelRow channel);
  // Puts the channel where its order belongs among the folder's, and its unread posts into the
  // folder's count. False, and nothing changes, when it is there already or one of the two is not.
  bool MoveChannel(int channelId, int folderId);

  // Of a folder, a channel or a cabinet; texts are in the module's code page.
  void Rename(const QModelIndex& row, std::string name);
  // The row goes, with a folder its channels too; a child's unread posts leave its group's count.
  // Returns the unread posts of the row.
  int Remove(const QModelIndex& row);

  // The first channel or cabinet behind `from` that has unread posts, or the last one before it; of
  // a group, `from` stands for all its rows. An invalid one stands before all rows, or behind them.
  QModelIndex FindUnread(const QModelIndex& from, bool forward) const;

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
  GroupRow* FindFolder(int folderId) const;  // null when there is none
  void RememberPlaces(GroupRow& folder);
  void AddToUnread(GroupRow& group, int difference);
  int RemoveChild(GroupRow& group, int row);
  int RemoveGroup(int row);
  void ReportCounts(const GroupRow& group);
  QModelIndex IndexOf(const GroupRow& group) const;
  QModelIndex FindCabinet(int cabinetId) const;
  ChildRow* MutableChildAt(const QModelIndex& index);
  // Both also change the group's count.
  int SetUnread(const QModelIndex& child, int count);
  void LowerUnread(const QModelIndex& child);
  QString FailureOf(const ChildRow& child) const;
  QVariant GroupData(const GroupRow& group, int role) const;
  QVariant ChildData(const ChildRow& child, int role) const;
  QString ShownName(const std::string& name) const;
  QString ShownLabel(const std::string& name, int unreadCount) const;
  QString SpokenLabel(const std::string& name, int unreadCount) const;
  QString SpokenLabel(const ChildRow& child) const;

  const CodePage codePage_;
  const RowTexts texts_;
  // A group's index has no internal pointer, a child's has its GroupRow.
  GroupRows groups_;
  std::unordered_map<int, Place> channels_;  // by channel id
};

}  // namespace feedloom
