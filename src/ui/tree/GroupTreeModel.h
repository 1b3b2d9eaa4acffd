// The item model of the tree: groups, and below them channels or cabinets.
#pragma once

#include <QAbstractItemModel>
#include <QPixmap>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "store/Rows.h"
#include "text/CodePage.h"
#include "ui/tree/TreeMoves.h"
#include "ui/tree/TreeRows.h"

namespace feedloom {

class DraggedPosts;

// The content of the tree. Each list is in the order of its rows.
struct TreeContent {
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;  // the channels of all folders
  std::vector<CabinetRow> cabinets;
  std::string cabinetTitle;  // the cabinet root's name
  int unreadInCabinets = 0;
};

// Texts that rows show or tell besides their names, in the module's code page.
struct RowTexts {
  // What is to be told of the last refresh of a channel, in lines; empty when there is nothing.
  std::function<std::string(const ChannelRow&)> report;
  std::function<bool(const ChannelRow&)> isDead;  // asked for a channel whose refresh failed
  // A screen reader speaks these after the name:
  std::string unread = {};  // "%d" is replaced by the count
  std::string isNew = {};
  std::string isFailing = {};
};

using ChannelIcons = std::unordered_map<int, QPixmap>;  // by channel id

// The model has one column. Qt::DisplayRole is the label on one line; a very long name is
// truncated. Qt::ToolTipRole is the name as rich text, with what is to be told of the last
// refresh. Qt::AccessibleTextRole tells a screen reader in words all that the row shows;
// Qt::AccessibleDescriptionRole is what is to be told of the last refresh. Qt::DecorationRole is
// the icon of a channel's site, a null pixmap without one. A function that is given the id or index
// of a missing row changes nothing. Interface thread only.
class GroupTreeModel : public QAbstractItemModel {
 public:
  enum Role {
    KindRole = Qt::UserRole,  // int: RowKind
    NameRole,                 // QString: the label without its count
    UnreadRole,               // int
    StateRole,                // int
    IsNewRole,                // bool
    HoldsFailureRole,         // bool, of a group: whether the refresh of one of its channels failed
    HoldsNewRole,             // bool, of a group: whether one of its channels is new
    IsAnimatedByMessageRole,  // bool
    IsDeadRole,               // bool, of a channel: whether its feed has probably gone for good
  };

  GroupTreeModel(CodePage codePage, RowTexts texts, QObject* parent = nullptr);
  ~GroupTreeModel() override;

  // Replaces all rows. The cabinet root is the last group. A channel whose folder is missing gets
  // no row. A negative count (the store could not read it) becomes 0.
  void Load(TreeContent content);

  // Brings the rows up to date with a newer reading of the store, one change at a time, so that
  // rows which stay keep their place, their marks and their persistent indexes. New rows come
  // where their order puts them: behind the last one of their group, unless they have come back.
  // cabinetTitle is not looked at.
  void Update(const TreeContent& content);

  const GroupRows& Groups() const { return groups_; }
  // The record of a row; null for an index of the other level. The pointer is valid until rows are
  // next added, moved or removed.
  const GroupRow* GroupAt(const QModelIndex& index) const;
  const ChildRow* ChildAt(const QModelIndex& index) const;
  // What a row stands for; nullopt for an invalid index.
  std::optional<RowKey> KeyOf(const QModelIndex& index) const;
  // The sum of the channels' unread counts.
  int UnreadInChannels() const;
  // The row of `key`; an invalid index when there is none.
  QModelIndex Find(const RowKey& key) const;
  // The row of a channel; an invalid index when there is none. Takes constant time.
  QModelIndex FindChannel(int channelId) const;

  // Sets a channel's unread count and changes its folder's count by the difference, which it
  // returns. A negative `count` changes nothing and returns 0.
  int SetChannelUnread(int channelId, int count);
  // These set the unread counts of many rows at once; SetChannelCounts also sets the channels'
  // states. A row that is not given, or whose count is negative, keeps its count.
  void SetChannelCounts(const std::vector<FolderRow>& folders,
                        const std::vector<ChannelRow>& channels);
  void SetCabinetCounts(int unreadInCabinets, const std::vector<CabinetRow>& cabinets);
  // Adds one to the cabinet root's unread count, and to the cabinet's when it has a row.
  void RaiseCabinetUnread(int cabinetId);
  // Subtract one from the unread counts of the row and of its group. No count goes below 0.
  void LowerChannelUnread(int channelId);
  void LowerCabinetUnread(int cabinetId);
  void SetChannelNew(int channelId, bool isNew);
  // As SetChannelNew, for a message of the refresh: once set, the row keeps the animation
  // NewPostAnimation::kByMessage.
  void SetChannelNewByMessage(int channelId, bool isNew);
  void SetChannelState(int channelId, int state);
  // Gives a channel another feed address.
  void SetAddress(int channelId, const std::string& address);
  // Gives the channels these icons; a channel that is not given has none.
  void SetIcons(ChannelIcons icons);

  // Append a folder behind the last folder, or a cabinet behind the last cabinet. A row that exists
  // already stays unchanged.
  void AppendFolder(FolderRow folder) { Insert(std::move(folder), Place::kLast); }
  void AppendCabinet(CabinetRow cabinet) { Insert(std::move(cabinet), Place::kLast); }
  // Appends a channel to its folder and adds its unread count to the folder's. Returns false and
  // changes nothing when the channel has a row already or its folder has none.
  bool AppendChannel(ChannelRow channel) { return Insert(std::move(channel), Place::kLast); }
  // Moves a channel to the position in the folder that its order gives, and its unread count from
  // the old folder's count to the new one's. Returns false and changes nothing when the channel is
  // in that folder already, or when one of the two has no row.
  bool MoveChannel(int channelId, int folderId);

  // Make the row the one with this number in its folder, or among the groups, and give all rows
  // there the orders 1, 2 and so on, protected folders excepted. They return false and change
  // nothing when the row, or the folder, is missing.
  bool PlaceChannel(int channelId, int folderId, int row);
  bool PlaceFolder(int folderId, int row);

  // Renames a folder, a channel or a cabinet. `name` is in the module's code page.
  void Rename(const QModelIndex& row, std::string name);
  // Removes a row, and a folder together with its channels. A child's unread count is subtracted
  // from its group's. Returns the unread count of the removed row.
  int Remove(const QModelIndex& row);

  // Forward: the first channel or cabinet with unread posts after `from`; otherwise the last one
  // before it. The children of a group `from` are skipped. An invalid `from` searches all rows.
  // Returns an invalid index when there is none.
  QModelIndex FindUnread(const QModelIndex& from, bool forward) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // Drag and drop. `onDrop` is called with a row that was dropped and its new place, when it can
  // stand there; it moves the row.
  void OnDrop(std::function<void(const RowKey& moved, const RowPlace& place)> onDrop) {
    onDrop_ = std::move(onDrop);
  }
  // `onPosts` is called with posts that were dropped on a cabinet.
  void OnPosts(std::function<void(int cabinetId, const DraggedPosts& posts)> onPosts) {
    onPosts_ = std::move(onPosts);
  }
  Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& rows) const override;
  bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 private:
  struct Position {
    GroupRow* group;
    int row;
  };

  enum class Place { kLast, kByOrder };

  void FillGroups(TreeContent content);
  void Insert(FolderRow folder, Place place);
  void Insert(CabinetRow cabinet, Place place);
  bool Insert(ChannelRow channel, Place place);
  GroupRow* FindFolder(int folderId) const;  // null when there is none
  void UpdateFolders(const std::vector<FolderRow>& folders);
  void UpdateChannels(const std::vector<ChannelRow>& channels);
  void UpdateCabinets(const std::vector<CabinetRow>& cabinets);
  void RemoveRowsExcept(const TreeContent& content);
  void RenameTo(const QModelIndex& row, const std::string& stored);
  void InsertChild(GroupRow& group, ChildRow child, Place place);
  void MoveChild(const QModelIndex& child, GroupRow& to, int row);
  void ReindexChannels(GroupRow& folder, int first = 0);
  void AddToUnread(GroupRow& group, int difference);
  int RemoveChild(GroupRow& group, int row);
  int RemoveGroup(int row);
  void ReportCounts(const GroupRow& group);
  QModelIndex IndexOf(const GroupRow& group) const;
  QModelIndex FindCabinet(int cabinetId) const;
  ChildRow* MutableChildAt(const QModelIndex& index);
  // These two also change the group's count.
  int SetUnread(const QModelIndex& child, int count);
  void LowerUnread(const QModelIndex& child);
  QString ReportOf(const ChildRow& child) const;
  QPixmap IconOf(const ChildRow& child) const;
  QVariant GroupData(const GroupRow& group, int role) const;
  QVariant ChildData(const ChildRow& child, int role) const;
  QString DisplayName(const std::string& name) const;
  QString DisplayLabel(const std::string& name, int unreadCount) const;
  QString AccessibleLabel(const std::string& name, int unreadCount) const;
  QString AccessibleLabel(const ChildRow& child) const;

  std::function<void(const RowKey& moved, const RowPlace& place)> onDrop_;
  std::function<void(int cabinetId, const DraggedPosts& posts)> onPosts_;
  const CodePage codePage_;
  const RowTexts texts_;
  // The internal pointer of a child's index is its GroupRow; that of a group's index is null.
  GroupRows groups_;
  std::unordered_map<int, Position> channels_;  // by channel id
  ChannelIcons icons_;
};

}  // namespace feedloom
