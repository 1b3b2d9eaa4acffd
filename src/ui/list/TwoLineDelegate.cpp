#include "ui/list/TwoLineDelegate.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

#include "ui/list/MarkedLine.h"
#include "ui/list/PostDelegate.h"
#include "ui/list/PostListModel.h"

namespace feedloom {
namespace {

constexpr int kMark = 24;  // the width of the unread mark's place, in pixels
constexpr int kEnd = 12;   // to the right of the texts
constexpr int kTitleTop = 4;
constexpr int kDetailsTop = 24;
constexpr int kLine = 18;

// "Channel, 2008-05-01, First words"; a part that is missing is left out. A long name of a channel
// gives way, down to two fifths of `width`.
QString Line(const QModelIndex& index, const QString& firstWords, const QFontMetrics& metrics,
             int width) {
  const QString separator = QStringLiteral(" \u00B7 ");
  QStringList parts{index.siblingAtColumn(kDateColumn).data().toString(), firstWords};
  parts.removeAll(QString());
  const int left = width - metrics.horizontalAdvance(separator + parts.join(separator));
  const QString owner = index.siblingAtColumn(kOwnerColumn).data().toString();
  parts.prepend(metrics.elidedText(owner, Qt::ElideRight, std::max(left, width * 2 / 5)));
  parts.removeAll(QString());
  return parts.join(separator);
}

struct Details {
  QString text;
  std::vector<FoundWord> found;
};

// Words that were found go before channel and date where there is no room for all.
Details DetailsOf(const QModelIndex& index, const TextQuery& query, const QFontMetrics& metrics,
                  int width) {
  const QString words = index.data(PostListModel::kFirstWordsRole).toString();
  const QString text = Line(index, words, metrics, width);
  std::vector<FoundWord> found = FindWords(words, query);
  if (found.empty()) return {text, {}};
  const qsizetype before = text.size() - words.size();
  const QString first = text.first(before + found.front().end) + QChar(0x2026);
  if (metrics.horizontalAdvance(first) > width) return {words, std::move(found)};
  for (FoundWord& word : found) word = {word.begin + before, word.end + before};
  return {text, std::move(found)};
}

}  // namespace

QSize TwoLineDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                const QModelIndex& /*index*/) const {
  return {CVxListCtrl::kFurtherColumnWidth, kRowHeight};
}

void TwoLineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  row.text.clear();
  QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
  const QVariant isRead = index.data(PostListModel::kIsReadRole);
  const bool isUnread = isRead.isValid() && !isRead.toBool();
  const bool isSelected = row.state.testFlag(QStyle::State_Selected);
  const QColor text = row.palette.color(QPalette::Text);
  const QRect line = row.rect.adjusted(kMark, 0, -kEnd, 0);
  QFont font = row.font;
  font.setBold(isUnread);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const QString title = index.data().toString();
  DrawLine(*painter, font, {line.left(), line.top() + kTitleTop, line.width(), kLine},
           {.text = title,
            .words = FindWords(title, model_.Marked()),
            .colour = text,
            .wordColour = text,
            .wordGround = foundGround_});
  const Details details = DetailsOf(index, model_.Marked(), QFontMetrics(row.font), line.width());
  const auto role = isSelected ? QPalette::Text : QPalette::PlaceholderText;
  DrawLine(*painter, row.font, {line.left(), line.top() + kDetailsTop, line.width(), kLine},
           {.text = details.text,
            .words = details.found,
            .colour = row.palette.color(role),
            .wordColour = text,
            .wordGround = foundGround_});
  if (isUnread)
    DrawUnreadMark(*painter,
                   QPointF(row.rect.left() + kMark / 2.0, row.rect.top() + kTitleTop + kLine / 2.0),
                   text);
  painter->restore();
}

}  // namespace feedloom
