#include "ui/list/PostListModel.h"

#include <QTextDocument>
#include <QTimer>
#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "look/QtText.h"
#include "ui/PostList.h"
#include "ui/list/FirstWords.h"

namespace feedloom {

PostListModel::PostListModel(CodePage codePage, PostListTexts texts, QObject* parent)
    : QAbstractTableModel(parent), codePage_(codePage), texts_(std::move(texts)) {}

void PostListModel::Fill(PostList list, const PostFilter& filter) {
  beginResetModel();
  sorting_ = {};
  Replace(std::move(list), filter);
  endResetModel();
}

void PostListModel::Append(PostList list) {
  if (list.posts.empty()) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(list.posts.size()) - 1);
  Pack(std::move(list.posts));
  endInsertRows();
  if (sorting_ != Sorting()) MoveRows(PostOrder(posts_, sorting_, codePage_));
}

void PostListModel::Refill(PostList list, const PostFilter& filter) {
  beginResetModel();
  Replace(std::move(list), filter);
  if (sorting_ != Sorting()) Reorder(PostOrder(posts_, sorting_, codePage_));
  endResetModel();
}

std::vector<PostRow> PostListModel::Take() {
  beginResetModel();
  BringBack();
  std::vector<PackedPost> posts = std::exchange(posts_, {});
  endResetModel();
  std::ranges::sort(posts, {}, &PackedPost::StoreIndex);
  std::vector<PostRow> rows;
  rows.reserve(posts.size());
  for (PackedPost& post : posts) rows.push_back(post.Release());
  return rows;
}

bool PostListModel::Shows(const PostList& list) const {
  const std::size_t count = posts_.size() + aside_.size();
  if (list.areScrapPosts != areScrapPosts_ || list.posts.size() != count) return false;
  std::unordered_map<int, const PackedPost*> shown;
  for (const auto* const posts : {&posts_, &aside_}) {
    for (const PackedPost& post : *posts) shown[post.Id()] = &post;
  }
  return std::ranges::all_of(list.posts, [&](const PostRow& post) {
    const auto found = shown.find(areScrapPosts_ ? post.id : ListId(post));
    return found != shown.end() && found->second->IsRead() == (post.readStatus != 0) &&
           found->second->Title() == post.title && found->second->OwnerTitle() == post.ownerTitle;
  });
}

void PostListModel::Replace(PostList list, const PostFilter& filter) {
  areScrapPosts_ = list.areScrapPosts;
  areFromWeb_ = list.areFromWeb;
  marked_ = ParseTextQuery(list.marked);
  aside_.clear();
  posts_.clear();
  posts_.shrink_to_fit();
  Pack(std::move(list.posts));
  SetAside(filter);
}

void PostListModel::Pack(std::vector<PostRow> rows) {
  aroundFound_.clear();
  posts_.reserve(posts_.size() + rows.size());
  for (PostRow& row : rows) {
    if (areScrapPosts_) row.isSaved = false;  // all are: their numbers are those of the store
    posts_.emplace_back(std::move(row), static_cast<int>(posts_.size()));
  }
  packed_ = std::move(rows);
  ReleasePacked();
}

// Freeing a million small strings takes longer than the rest of filling a long list. So they are
// freed in portions, after the rows are shown and while the event loop runs.
void PostListModel::ReleasePacked() {
  constexpr std::size_t kAtOnce = 5'000;
  packed_.resize(packed_.size() - std::min(packed_.size(), kAtOnce));
  if (packed_.empty()) {
    packed_.shrink_to_fit();
  } else {
    QTimer::singleShot(0, this, &PostListModel::ReleasePacked);
  }
}

PostRow PostListModel::At(int row) const { return Post(row).Unpack(); }

std::vector<int> PostListModel::IdsOf(std::span<const int> rows) const {
  std::vector<int> ids(rows.size());
  std::ranges::transform(rows, ids.begin(), [this](int row) { return IdAt(row); });
  return ids;
}

std::vector<int> PostListModel::RowsOf(std::span<const int> ids) const {
  const std::unordered_set<int> wanted(ids.begin(), ids.end());
  std::vector<int> rows;
  for (int row = 0; row < rowCount(); ++row) {
    if (wanted.contains(IdAt(row))) rows.push_back(row);
  }
  return rows;
}

int PostListModel::FindUnread(int row, bool forward) const {
  const int step = forward ? 1 : -1;
  for (row += step; row >= 0 && row < rowCount(); row += step) {
    if (!IsReadAt(row)) return row;
  }
  return -1;
}

void PostListModel::SetReadStatus(std::span<const int> rows, int status) {
  if (rows.empty()) return;
  for (const int row : rows) posts_[static_cast<std::size_t>(row)].SetReadStatus(status);
  const auto [first, last] = std::ranges::minmax(rows);
  emit dataChanged(index(first, 0),
                   index(last, columnCount() - 1));  // all cells change between bold and normal
}

void PostListModel::Remove(std::span<const int> rows) { Drop(rows, true); }

// Removing thousands of scattered rows one by one would notify every view each time. So the rows
// are first moved to the end together and then removed as one range.
void PostListModel::Drop(std::span<const int> rows, bool isForGood) {
  if (rows.empty()) return;
  const auto count = static_cast<int>(rows.size());
  const bool isRange = rows.back() - rows.front() == count - 1;
  const int first = isRange ? rows.front() : MoveToEnd(rows);
  beginRemoveRows({}, first, first + count - 1);
  const auto begin = posts_.begin() + first, end = begin + count;
  if (!isForGood) aside_.insert(aside_.end(), std::move_iterator(begin), std::move_iterator(end));
  posts_.erase(begin, end);
  posts_.shrink_to_fit();
  endRemoveRows();
}

// Returns the new number of the first of them.
int PostListModel::MoveToEnd(std::span<const int> rows) {
  std::vector<int> order;
  order.reserve(posts_.size());
  auto next = rows.begin();
  for (int row = 0; row < rowCount(); ++row) {
    next != rows.end() && *next == row ? void(++next) : order.push_back(row);
  }
  const int left = static_cast<int>(order.size());
  order.insert(order.end(), rows.begin(), rows.end());
  MoveRows(order);
  return left;
}

void PostListModel::sort(int column, Qt::SortOrder order) {
  const Sorting sorting = column < 0 ? Sorting() : Sorting{column, order};
  if (sorting == sorting_) return;
  sorting_ = sorting;
  MoveRows(PostOrder(posts_, sorting_, codePage_));
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

// Moves row order[i] to row i, for each i.
void PostListModel::Reorder(std::span<const int> order) {
  std::vector<PackedPost> arranged;
  arranged.reserve(posts_.size());
  for (const int row : order) arranged.push_back(std::move(posts_[static_cast<std::size_t>(row)]));
  posts_ = std::move(arranged);
}

// Reorders the rows and updates the persistent indexes.
void PostListModel::MoveRows(std::span<const int> order) {
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  Reorder(order);
  std::vector<int> rowOf(order.size());
  for (int row = 0; row < rowCount(); ++row) {
    rowOf[static_cast<std::size_t>(order[static_cast<std::size_t>(row)])] = row;
  }
  const QModelIndexList from = persistentIndexList();
  QModelIndexList to;
  to.reserve(from.size());
  for (const QModelIndex& old : from) {
    to.append(index(rowOf[static_cast<std::size_t>(old.row())], old.column()));
  }
  changePersistentIndexList(from, to);
  emit layoutChanged({}, VerticalSortHint);
}

int PostListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(posts_.size());
}

int PostListModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return std::max(static_cast<int>(texts_.headings.size()), int{kPostColumnCount});
}

QVariant PostListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const PackedPost& post = Post(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return CellText(post, index.column());
    case Qt::AccessibleTextRole:
      return AccessibleText(post, index.column());
    case Qt::ToolTipRole:
      return index.column() == kDateColumn ? DateTip(post) : QVariant();
    case kIsReadRole:
      return areFromWeb_ ? QVariant() : post.IsRead();
    case kFirstWordsRole:
      return Words(post);
    default:
      return {};
  }
}

QString PostListModel::CellText(const PackedPost& post, int column) const {
  switch (column) {
    case kReadColumn:
      return post.IsRead() ? "1" : "0";
    case kTitleColumn:
      return ToLine(codePage_, post.Title());
    case kDateColumn:
      return DateCell(post.Published());
    case kOwnerColumn:
      return ToLine(codePage_, post.OwnerTitle());
    default:
      return {};
  }
}

// A list is painted again and again, and a hit may be anywhere in a long text.
QString PostListModel::Words(const PackedPost& post) const {
  if (marked_.parts.empty()) return FirstWords(codePage_, post.Description());
  if (const QString* const known = aroundFound_[post.StoreIndex()]) return *known;
  const QString words = WordsAroundFound(codePage_, post.Description(), marked_);
  aroundFound_.insert(post.StoreIndex(), new QString(words));
  return words;
}

// As rich text: Qt would interpret a plain text that looks like HTML.
QString PostListModel::DateTip(const PackedPost& post) const {
  const QString time = DayAndTime(post.Published());
  const QString owner = ToLine(codePage_, post.OwnerTitle());
  return Qt::convertFromPlainText(time.isEmpty() ? owner : time + '\n' + owner,
                                  Qt::WhiteSpaceNormal);
}

// The text for screen readers; invalid where it equals the displayed text.
QVariant PostListModel::AccessibleText(const PackedPost& post, int column) const {
  const QString status = areFromWeb_ ? QString() : post.IsRead() ? texts_.read : texts_.unread;
  if (column == kReadColumn) return status;
  if (column != kTitleColumn) return {};
  QStringList told{CellText(post, column), status};
  if (hasTwoLines_) told << CellText(post, kOwnerColumn) << CellText(post, kDateColumn);
  told.removeAll(QString());
  return told.join(", ");
}

QString PostListModel::AccessibleHeading(int section) const {
  const QString heading = texts_.headings.value(section);
  if (section != sorting_.column) return heading;
  return heading + ", " +
         (sorting_.order == Qt::AscendingOrder ? texts_.ascending : texts_.descending);
}

QVariant PostListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::AccessibleTextRole) return AccessibleHeading(section);
  return role == Qt::DisplayRole ? texts_.headings.value(section) : QVariant();
}

}  // namespace feedloom
