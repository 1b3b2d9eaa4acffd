#include "ui/dialogs/DirectoryModel.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <utility>

#include "look/QtText.h"

namespace feedloom {
namespace {

// Names of the tags that do not break a line.
constexpr std::string_view kInline[] = {"a", "b", "em", "font", "i", "span", "strong", "u"};

bool IsLetter(char character) { return std::isalpha(static_cast<unsigned char>(character)) != 0; }

// True when `text`, which begins with "<", begins with a tag.
bool BeginsTag(std::string_view text) {
  const char next = text.size() > 1 ? text[1] : ' ';
  return IsLetter(next) || next == '/' || next == '!' || next == '?';
}

bool PartsLines(std::string_view tag) {
  tag.remove_prefix(tag[1] == '/' ? 2 : 1);
  std::string name;
  for (const char letter : tag) {
    if (!IsLetter(letter)) break;
    name += static_cast<char>(std::tolower(letter));
  }
  return std::ranges::find(kInline, name) == std::end(kInline);
}

}  // namespace

std::string WithoutTags(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find('<'), text.size());
    plain += text.substr(0, start);
    text.remove_prefix(start);
    if (text.empty()) break;
    const bool isTag = BeginsTag(text);
    const std::size_t end = isTag ? text.find('>') : 0;
    if (end == text.npos) return plain.append(text);  // no later tag ends either
    if (!isTag) plain += '<';
    if (isTag && PartsLines(text.substr(0, end))) plain += ' ';
    text.remove_prefix(end + 1);
  }
  return plain;
}

DirectoryModel::DirectoryModel(CodePage codePage, QStringList headings, QObject* parent)
    : QAbstractTableModel(parent), codePage_(codePage), headings_(std::move(headings)) {}

void DirectoryModel::Clear() {
  beginResetModel();
  rows_.clear();
  endResetModel();
}

void DirectoryModel::Append(const std::vector<PostRow>& rows) {
  if (rows.empty()) return;
  beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(rows.size()) - 1);
  std::ranges::transform(rows, std::back_inserter(rows_),
                         [this](const PostRow& row) { return MakeRow(row); });
  endInsertRows();
}

DirectoryModel::Row DirectoryModel::MakeRow(const PostRow& found) const {
  return {.cells = {ToLine(codePage_, WithoutTags(found.title)),
                    ToLine(codePage_, WithoutTags(found.description)),
                    ToLine(codePage_, found.feedUrl)},
          .feedUrl = found.feedUrl};
}

const std::string& DirectoryModel::FeedUrlAt(int row) const {
  return rows_[static_cast<std::size_t>(row)].feedUrl;
}

int DirectoryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int DirectoryModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int{kColumnCount};
}

QVariant DirectoryModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const QString& cell =
      rows_[static_cast<std::size_t>(index.row())].cells[static_cast<std::size_t>(index.column())];
  if (role == Qt::DisplayRole) return cell;
  // The whole text, which a narrow column cuts off. "<qt>" turns on line wrapping.
  return role == Qt::ToolTipRole ? "<qt>" + cell.toHtmlEscaped() : QVariant();
}

QVariant DirectoryModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return headings_.value(section);
}

}  // namespace feedloom
