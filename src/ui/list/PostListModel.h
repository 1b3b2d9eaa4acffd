// The item model of the post list, for up to 200,000 rows: it keeps packed records and converts a
// text to a QString only when a cell is read.
#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <QStringList>
#include <span>
#include <vector>

#include "search/TextQuery.h"
#include "text/CodePage.h"
#include "ui/list/PackedPost.h"
#include "ui/list/PostCells.h"
#include "ui/list/PostFilter.h"
#include "ui/list/PostOrder.h"

namespace feedloom {

struct PostList;

// Texts of the list besides those of the posts.
struct PostListTexts {
  QStringList headings;
  QString read;  // the read status for screen readers
  QString unread;
  QString ascending = {};  // the sort order for screen readers
  QString descending = {};
};

// Functions that change rows do not change the store. The rows that are passed to them must exist.
// A post that a filter hides waits aside, without a row. Interface thread only.
class PostListModel : public QAbstractTableModel {
 public:
  enum Role {
    kIsReadRole = Qt::UserRole,  // bool; invalid where posts have no read status
    // QString: what the post's text begins with; what stands around the first marked word
    kFirstWordsRole,
  };

  // `codePage` is the encoding of the posts' texts. Each heading beyond those of PostColumn adds an
  // empty column.
  PostListModel(CodePage codePage, PostListTexts texts, QObject* parent);

  // Replaces all rows, in the given order, and resets the sorting.
  void Fill(PostList list, const PostFilter& filter = {});
  // Appends rows; the sorting stays.
  void Append(PostList list);
  // Replaces all rows; the sorting stays.
  void Refill(PostList list, const PostFilter& filter = {});

  // Gives just the posts that `filter` does not hide rows, by a reset if that changes anything; the
  // sorting stays.
  void Filter(const PostFilter& filter);
  // Takes the rows away that `filter` hides; brings none back.
  void Hide(const PostFilter& filter);
  int HiddenCount() const { return static_cast<int>(aside_.size()); }

  // Removes all rows and returns the posts, hidden ones too, in the store's order.
  std::vector<PostRow> Take();

  // Whether the posts, hidden ones too, are those of `list`, in any order, with the same texts in
  // the cells.
  bool Shows(const PostList& list) const;

  // The order of the rows; column -1 for the store's.
  const Sorting& SortedBy() const { return sorting_; }

  bool AreScrapPosts() const { return areScrapPosts_; }
  // Ids are those of ListId.
  // What is marked in the rows; without parts for nothing.
  const TextQuery& Marked() const { return marked_; }
  PostRow At(int row) const;
  int IdAt(int row) const { return Post(row).Id(); }
  bool IsReadAt(int row) const { return Post(row).IsRead(); }
  std::vector<int> IdsOf(std::span<const int> rows) const;
  // The ids of all posts, hidden ones too, in the store's order.
  std::vector<int> Ids() const;
  // The rows of the posts with these ids, ascending. Ids without a row are skipped.
  std::vector<int> RowsOf(std::span<const int> ids) const;
  // Forward: the first row after `row` with an unread post; otherwise the last one before it.
  // Returns -1 when there is none. `row` may be -1 or rowCount().
  int FindUnread(int row, bool forward) const;

  void SetReadStatus(std::span<const int> rows, int status);
  // Removes rows. `rows` must be in ascending order.
  void Remove(std::span<const int> rows);

  // Whether a title tells screen readers the channel and the date, too, as its row shows all three.
  void SetTwoLines(bool areTwo) { hasTwoLines_ = areTwo; }

  // Sorts by a column; column -1 restores the store's order.
  void sort(int column, Qt::SortOrder order) override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  // The text of the read status column is "1" (read) or "0"; the delegate paints a mark instead.
  // The tip of the date column is the time and the channel or cabinet.
  // For screen readers the read status is in words, and is also appended to the title.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const PackedPost& Post(int row) const { return posts_[static_cast<std::size_t>(row)]; }
  QString CellText(const PackedPost& post, int column) const;
  QString Words(const PackedPost& post) const;
  QString DateTip(const PackedPost& post) const;
  QVariant AccessibleText(const PackedPost& post, int column) const;
  QString AccessibleHeading(int section) const;
  void Replace(PostList list, const PostFilter& filter);
  void BringBack();
  void SetAside(const PostFilter& filter);
  int MoveToEnd(std::span<const int> rows);
  void Drop(std::span<const int> rows, bool isForGood);
  void Pack(std::vector<PostRow> rows);
  void ReleasePacked();
  void Reorder(std::span<const int> order);
  void MoveRows(std::span<const int> order);

  const CodePage codePage_;
  const PostListTexts texts_;
  std::vector<PackedPost> posts_;
  std::vector<PackedPost> aside_;
  std::vector<PostRow> packed_;  // rows that were packed and are still to be freed
  Sorting sorting_;
  TextQuery marked_;
  mutable QCache<int, QString> aroundFound_{1'000};  // by PackedPost::StoreIndex
  bool areScrapPosts_ = false;
  bool hasTwoLines_ = false;
  bool areFromWeb_ = false;
};

}  // namespace feedloom
