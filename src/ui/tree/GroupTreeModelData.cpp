// What GroupTreeModel tells of its rows: their texts, and what their roles hold.
#include <QString>
#include <QTextDocument>

#include "look/QtText.h"
#include "skin/TextPlaceholders.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/RowLabel.h"

namespace feedloom {
namespace {

// Qt would interpret a plain text that looks like HTML, so the text is escaped as rich text.
QString ToolTip(const QString& name, const QString& report) {
  return Qt::convertFromPlainText(report.isEmpty() ? name : name + '\n' + report,
                                  Qt::WhiteSpaceNormal);
}

}  // namespace

QString GroupTreeModel::ReportOf(const ChildRow& child) const {
  return child.kind == RowKind::Channel ? ToQString(codePage_, texts_.report(child)) : QString();
}

QPixmap GroupTreeModel::IconOf(const ChildRow& child) const {
  const auto icon = icons_.find(child.id);
  return child.kind == RowKind::Channel && icon != icons_.end() ? icon->second : QPixmap();
}

QVariant GroupTreeModel::GroupData(const GroupRow& group, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return DisplayLabel(group.name, group.unreadCount);
    case Qt::AccessibleTextRole:
      return AccessibleLabel(group.name, group.unreadCount);
    case KindRole:
      return static_cast<int>(group.kind);
    case Qt::ToolTipRole:
      return ToolTip(DisplayName(group.name), {});
    case NameRole:
      return DisplayName(group.name);
    case UnreadRole:
      return group.unreadCount;
    case HoldsFailureRole:
      return std::ranges::any_of(group.children, [](const auto& row) { return row.state < 0; });
    case HoldsNewRole:
      return std::ranges::any_of(group.children, &ChildRow::isNew);
    default:
      return {};
  }
}

QVariant GroupTreeModel::ChildData(const ChildRow& child, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return DisplayLabel(child.title, child.unreadCount);
    case Qt::AccessibleTextRole:
      return AccessibleLabel(child);
    case Qt::AccessibleDescriptionRole:
      return ReportOf(child);
    case Qt::DecorationRole:
      return IconOf(child);
    case KindRole:
      return static_cast<int>(child.kind);
    case NameRole:
      return DisplayName(child.title);
    case UnreadRole:
      return child.unreadCount;
    case StateRole:
      return child.state;
    case IsNewRole:
      return child.isNew;
    case IsAnimatedByMessageRole:
      return child.isAnimatedByMessage;
    case IsDeadRole:
      return child.state < 0 && texts_.isDead(child);
    case Qt::ToolTipRole:
      return ToolTip(DisplayName(child.title), ReportOf(child));
    default:
      return {};
  }
}

QString GroupTreeModel::DisplayName(const std::string& name) const {
  return ToLine(codePage_, name);
}

QString GroupTreeModel::DisplayLabel(const std::string& name, int unreadCount) const {
  return DisplayName(name) + QString::fromStdString(AppendCount({}, unreadCount));
}

QString GroupTreeModel::AccessibleLabel(const std::string& name, int unreadCount) const {
  const QString shown = DisplayName(name);
  if (unreadCount <= 0) return shown;
  return shown + ", " + ToQString(codePage_, WithNumbers(texts_.unread, {unreadCount}));
}

QString GroupTreeModel::AccessibleLabel(const ChildRow& child) const {
  QString label = AccessibleLabel(child.title, child.unreadCount);
  if (child.isNew) label += ", " + ToQString(codePage_, texts_.isNew);
  if (child.state < 0) label += ", " + ToQString(codePage_, texts_.isFailing);
  return label;
}

}  // namespace feedloom
