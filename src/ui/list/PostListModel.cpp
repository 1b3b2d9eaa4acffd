#include "ui/list/PostListModel.h"

#include <utility>

#include "ui/list/PostCells.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

constexpr char kHeader[] = "읽음|제목|작성일|채널명";

bool IsRead(const PostRow& post) { return post.readStatus != 0; }

}  // namespace

PostListModel::PostListModel(CodePage codePage, QObject* parent)
    : QAbstractTableModel(parent), codePage_(codePage) {}

void PostListModel::SetPosts(std::vector<PostRow> posts) {
  beginResetModel();
  posts_ = std::move(posts);
  endResetModel();
}

void PostListModel::MarkRead(int row) {
  posts_[static_cast<std::size_t>(row)].readStatus = 1;
  emit dataChanged(index(row, 0), index(row, kColumnCount - 1));  // all its cells were bold
}

int PostListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(posts_.size());
}

int PostListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant PostListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const PostRow& post = posts_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return CellText(post, index.column());
    case kIsReadRole:
      return IsRead(post);
    default:
      return {};
  }
}

QString PostListModel::CellText(const PostRow& post, int column) const {
  switch (column) {
    case kReadColumn:
      return IsRead(post) ? "1" : "0";
    case kTitleColumn:
      return ToLine(codePage_, post.title);
    case kDateColumn:
      return DateCell(post.published);
    default:
      return ToLine(codePage_, post.ownerTitle);
  }
}

QVariant PostListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return QString::fromUtf8(kHeader).section('|', section, section);
}

}  // namespace feedloom
