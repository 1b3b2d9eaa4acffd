// The rows of the post list. Built for 200,000 of them: it keeps the store's own records, and makes
// a toolkit's string of a text only when a cell is asked for it.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "platform/CodePage.h"
#include "store/Rows.h"

namespace feedloom {

// Interface thread.
class PostListModel : public QAbstractTableModel {
 public:
  enum Column { kReadColumn, kTitleColumn, kDateColumn, kOwnerColumn, kColumnCount };
  enum Role { kIsReadRole = Qt::UserRole };

  // The texts of the posts are in `codePage`.
  PostListModel(CodePage codePage, QObject* parent);

  // Replaces all rows, in the order given.
  void SetPosts(std::vector<PostRow> posts);
  const std::vector<PostRow>& Posts() const { return posts_; }
  // Changes the row only, not the store. `row` exists.
  void MarkRead(int row);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  // The read status is the text "1" (read) or "0"; the delegate paints it.
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString CellText(const PostRow& post, int column) const;

  const CodePage codePage_;
  std::vector<PostRow> posts_;
};

}  // namespace feedloom
