// The rows of the directory dialog's list.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "text/CodePage.h"

namespace feedloom {

// Removes HTML tags from `text`. Tags that break a line are replaced by a blank, inline ones by
// nothing. Pure.
std::string WithoutTags(std::string_view text);

// One row for each feed: title, description and feed address, as single lines. Interface thread
// only.
class DirectoryModel : public QAbstractTableModel {
 public:
  enum Column { kTitle, kDescription, kFeedUrl, kColumnCount };

  // `codePage` is the encoding of the rows' texts; `headings` has one text for each column.
  DirectoryModel(CodePage codePage, QStringList headings, QObject* parent);

  void Clear();
  // Appends the rows in the given order.
  void Append(const std::vector<PostRow>& rows);
  // The feed address of an existing row, in the module's code page; may be empty.
  const std::string& FeedUrlAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    std::array<QString, kColumnCount> cells;
    std::string feedUrl;
  };

  Row MakeRow(const PostRow& found) const;

  const CodePage codePage_;
  const QStringList headings_;
  std::vector<Row> rows_;
};

}  // namespace feedloom
