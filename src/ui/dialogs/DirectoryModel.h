// What the directory dialog lists of the web directory's answers.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "store/Rows.h"

namespace feedloom {

// `text` without its tags; one that parts lines leaves a blank. Pure.
std::string WithoutTags(std::string_view text);

// A row for each feed: title, description and feed address, each on one line. Interface thread.
class DirectoryModel : public QAbstractTableModel {
 public:
  enum Column { kTitle, kDescription, kFeedUrl, kColumnCount };

  // The texts of the rows are in `codePage`; one heading a column.
  DirectoryModel(CodePage codePage, QStringList headings, QObject* parent);

  void Clear();
  // In the directory's order.
  void Append(const std::vector<PostRow>& rows);
  // In the module's code page; may be empty. The row exists.
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
