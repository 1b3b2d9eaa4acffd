// Drag and drop of the tree's rows.
#include <QCoreApplication>
#include <QMimeData>

#include "ui/SavedPosts.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

constexpr char kRowFormat[] = "application/x-feedloom-row";

// The row in a drag that began in this process: ids of another one's database mean nothing here.
std::optional<RowKey> RowIn(const QMimeData* data) {
  const QList<QByteArray> parts = data->data(kRowFormat).split(' ');
  if (parts.size() != 3 || parts[0].toLongLong() != QCoreApplication::applicationPid()) return {};
  return RowKey{static_cast<RowKind>(parts[1].toInt()), parts[2].toInt()};
}

bool IsCabinet(const std::optional<RowKey>& row) { return row && row->kind == RowKind::Cabinet; }

// A drop on a cabinet is one on the cabinet root, unless it is of posts.
QModelIndex GroupOf(const QModelIndex& row) { return row.parent().isValid() ? row.parent() : row; }

}  // namespace

QStringList GroupTreeModel::mimeTypes() const { return {kRowFormat, DraggedPosts::kFormat}; }

QMimeData* GroupTreeModel::mimeData(const QModelIndexList& rows) const {
  const auto key = rows.isEmpty() ? std::nullopt : KeyOf(rows.first());
  if (!key) return nullptr;
  auto* const data = new QMimeData;
  data->setData(kRowFormat, QStringLiteral("%1 %2 %3")
                                .arg(QCoreApplication::applicationPid())
                                .arg(static_cast<int>(key->kind))
                                .arg(key->id)
                                .toLatin1());
  return data;
}

bool GroupTreeModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int row,
                                     int /*column*/, const QModelIndex& parent) const {
  if (dynamic_cast<const DraggedPosts*>(data)) return IsCabinet(KeyOf(parent));
  const auto moved = RowIn(data);
  return moved && PlaceOfDrop(groups_, *moved, row, GroupOf(parent)).has_value();
}

bool GroupTreeModel::dropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int row,
                                  int /*column*/, const QModelIndex& parent) {
  if (const auto* const posts = dynamic_cast<const DraggedPosts*>(data)) {
    const auto key = KeyOf(parent);
    if (IsCabinet(key) && onPosts_) onPosts_(key->id, *posts);
    return IsCabinet(key);
  }
  const auto moved = RowIn(data);
  const auto place = moved ? PlaceOfDrop(groups_, *moved, row, GroupOf(parent)) : std::nullopt;
  if (place && onDrop_) onDrop_(*moved, *place);
  return place.has_value();
}

}  // namespace feedloom
