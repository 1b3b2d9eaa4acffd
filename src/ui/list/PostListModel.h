// The rows of the post list. Built for 200,000 of them: it keeps packed records, and makes a
// toolkit's string of a text only when a cell is asked for it.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <span>
#include <vector>

#include "platform/CodePage.h"
#include "ui/list/PackedPost.h"
#include "ui/list/PostCells.h"
#include "ui/list/PostOrder.h"

namespace feedloom {

struct PostList;

// What the list says beside the posts' own texts.
struct PostListTexts {
  QStringList headings;
  QString read;  // the read status in words
  QString unread;
  QString ascending = {};  // how the column is sorted, in words
  QString descending = {};
};

// Interface thread. Operations on rows change the rows only, not the store; the rows that they name
// exist.
class PostListModel : public QAbstractTableModel {
 public:
  enum Role { kIsReadRole = Qt::UserRole };

  // The texts of the posts are in `codePage`. A heading beyond those of PostColumn makes an empty
  // column.
  PostListModel(CodePage codePage, PostListTexts texts, QObject* parent);

  // Replaces all rows; they stand in the order given.
  void Fill(PostList list);
  // Adds rows; the sorting stays.
  void Append(PostList list);
  // Replaces all rows; the sorting stays.
  void Refill(PostList list);

  bool AreScrapPosts() const { return areScrapPosts_; }
  PostRow At(int row) const;
  int IdAt(int row) const { return Post(row).Id(); }
  bool IsReadAt(int row) const { return Post(row).IsRead(); }
  std::vector<int> IdsOf(std::span<const int> rows) const;
  // The rows of those of the posts that are listed, ascending.
  std::vector<int> RowsOf(std::span<const int> ids) const;
  // The first unread post behind `row`, or the last one before it; -1 when there is none. `row` may
  // be the one before the first, or behind the last.
  int FindUnread(int row, bool forward) const;

  void SetReadStatus(std::span<const int> rows, int status);
  // Releases the posts. `rows` are ascending.
  void Remove(std::span<const int> rows);

  // By a column; by -1 the store's order is back.
  void sort(int column, Qt::SortOrder order) override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  // The read status is the text "1" (read) or "0", which the delegate paints; a screen reader gets
  // it in words, with the title too, so that the title's cell tells it all.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const PackedPost& Post(int row) const { return posts_[static_cast<std::size_t>(row)]; }
  QString CellText(const PackedPost& post, int column) const;
  QVariant SpokenText(const PackedPost& post, int column) const;
  QString SpokenHeading(int section) const;
  void Replace(PostList list);
  void Pack(std::vector<PostRow> rows);
  void ReleasePacked();
  void Arrange(std::span<const int> order);
  void MoveRows(std::span<const int> order);

  const CodePage codePage_;
  const PostListTexts texts_;
  std::vector<PackedPost> posts_;
  std::vector<PostRow> packed_;  // what was given for them, until it is released
  Sorting sorting_;
  bool areScrapPosts_ = false;
};

}  // namespace feedloom
