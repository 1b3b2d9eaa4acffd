#include "controls/CVxListCtrl.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "controls/AccessibleRole.h"
#include "controls/RowAccessibility.h"
#include "controls/VxListHeader.h"
#include "look/SkinDrawing.h"

namespace feedloom {
namespace {

constexpr int kNarrowestColumn = 16;
constexpr int kEmptyMargin = 12;  // pixels beside the text of an empty list

}  // namespace

QSize VxListDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {CVxListCtrl::kFurtherColumnWidth, CVxListCtrl::kRowHeight};
}

CVxListCtrl::CVxListCtrl(QWidget* parent) : QTreeView(parent) {
  setItemDelegate(new VxListDelegate(this));
  setUniformRowHeights(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setWordWrap(false);
  setAllColumnsShowFocus(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  setSelectionBehavior(SelectRows);
  // Scrolled by rows, so the first visible row is never cut and the scroll value is its number.
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  SetUpHeader();
  // Only the user's actions are reported; inserted and removed rows also move the scroll bar.
  connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this, [this] {
    if (verticalScrollBar()->maximum() > 0 && IsAtEnd()) emit EndReached();
  });
}

void CVxListCtrl::SetUpHeader() {
  auto* const headings = new VxListHeader(this);
  setHeader(headings);
  connect(headings, &VxListHeader::KeyboardLeft, this, [this] { setFocus(); });
  header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header()->setMinimumSectionSize(kNarrowestColumn);
  header()->setDefaultSectionSize(kFurtherColumnWidth);
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
  header()->setContextMenuPolicy(Qt::PreventContextMenu);  // the context menu is that of rows
  header()->setSectionsClickable(true);
  header()->setSortIndicatorClearable(true);
  ClearSorting();
  header()->setSortIndicatorShown(true);
  connect(header(), &QHeaderView::sortIndicatorChanged, this, &CVxListCtrl::SortRequested);
  QPalette colours = header()->palette();
  const QPalette menu = QApplication::palette("QMenu");
  for (const auto role : {QPalette::Button, QPalette::Window}) {
    colours.setColor(role, menu.color(QPalette::Window));
  }
  for (const auto role : {QPalette::ButtonText, QPalette::WindowText}) {
    colours.setColor(role, menu.color(QPalette::WindowText));
  }
  header()->setPalette(colours);
}

void CVxListCtrl::ClearSorting() { header()->setSortIndicator(-1, Qt::AscendingOrder); }

void CVxListCtrl::SetColumnWidths(std::initializer_list<int> widths) {
  int column = 0;
  for (const int width : widths) setColumnWidth(column++, width);
}

void CVxListCtrl::SetOneColumn(std::optional<int> column) {
  const std::vector<int> widths = ColumnWidths();
  widthsBefore_ = column ? widths : std::vector<int>();
  setHeaderHidden(column.has_value());
  for (int i = 0; i < header()->count(); ++i) {
    setColumnHidden(i, column && i != *column);
    header()->setSectionResizeMode(i,
                                   column == i ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (!column) setColumnWidth(i, widths[static_cast<std::size_t>(i)]);
  }
  doItemsLayout();
}

std::vector<int> CVxListCtrl::ColumnWidths() const {
  if (!widthsBefore_.empty()) return widthsBefore_;
  std::vector<int> widths;
  for (int i = 0; i < header()->count(); ++i) widths.push_back(columnWidth(i));
  return widths;
}

std::vector<int> CVxListCtrl::SelectedRows() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void CVxListCtrl::SetAnchor(int row) { anchor_ = model()->index(row, 0); }

void CVxListCtrl::keyPressEvent(QKeyEvent* event) {
  if (HandleToolTipKey(*this, *event)) return;
  if (event->key() == Qt::Key_Up && event->modifiers() == Qt::AltModifier) {
    return header()->setFocus(Qt::OtherFocusReason);
  }
  const bool isShift =
      event->key() == Qt::Key_Shift || event->modifiers().testFlag(Qt::ShiftModifier);
  if (!isShift) anchor_ = QModelIndex();
  const int from = currentIndex().row();
  QTreeView::keyPressEvent(event);
  const int to = currentIndex().row();
  const bool isSelected = selectionModel()->isSelected(currentIndex());  // not with Ctrl
  if (to != from && isSelected && !isShift) emit RowReached(to);
  const bool goesDown = event->key() == Qt::Key_Down || event->key() == Qt::Key_PageDown;
  const bool isDown = goesDown && verticalScrollBar()->maximum() > 0 && IsAtEnd();
  if (event->key() == Qt::Key_End || isDown) emit EndReached();
}

bool CVxListCtrl::IsAtEnd() const {
  return verticalScrollBar()->sliderPosition() == verticalScrollBar()->maximum();
}

void CVxListCtrl::SetEmptyText(const QString& text) {
  emptyText_ = text;
  setAccessibleDescription(text);
  viewport()->update();
}

void CVxListCtrl::SetInputBlocked(bool isBlocked) {
  if (isBlocked != isEnabled()) return;
  if (isBlocked) {
    Cover()->show();
    QWidget* const focus = window()->focusWidget();
    if (focus == this || isAncestorOf(focus)) cover_->setFocus();
    setEnabled(false);
  } else {
    setEnabled(true);
    if (window()->focusWidget() == cover_) setFocus();
    cover_->hide();
  }
}

QWidget* CVxListCtrl::Cover() {
  if (!cover_) {
    cover_ = new QWidget(parentWidget());
    SetAccessibleRole(*cover_, QAccessible::Pane);
    cover_->setAccessibleName(accessibleName());
    cover_->setCursor(Qt::WaitCursor);
  }
  PlaceCover();
  cover_->raise();
  return cover_;
}

void CVxListCtrl::PlaceCover() {
  if (cover_) cover_->setGeometry(geometry());
}

void CVxListCtrl::resizeEvent(QResizeEvent* event) {
  const QRect row = visualRect(currentIndex());
  const bool wasSeen = row.bottom() >= 0 && row.top() < event->oldSize().height();
  QTreeView::resizeEvent(event);
  if (wasSeen) {
    const int lines = std::max(viewport()->height() / row.height(), 1);
    const int number = currentIndex().row();
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(std::clamp(bar.value(), number - lines + 1, number));
  }
  PlaceCover();
}

void CVxListCtrl::moveEvent(QMoveEvent* event) {
  QTreeView::moveEvent(event);
  PlaceCover();
}

// The base class selects from the row that the user chose last, even after SetAnchor. The rectangle
// starts at the anchor's centre instead.
void CVxListCtrl::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
  if (!command.testFlag(QItemSelectionModel::Current)) anchor_ = QModelIndex();
  const bool isMoved = anchor_.isValid();
  QTreeView::setSelection(isMoved ? QRect(visualRect(anchor_).center(), rect.bottomRight()) : rect,
                          command);
}

void CVxListCtrl::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                              const QList<int>& roles) {
  QTreeView::dataChanged(topLeft, bottomRight, roles);
  NotifyChangedCells(*this, topLeft, bottomRight);
}

void CVxListCtrl::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  DrawFocusWithoutRow(*this);
  if (emptyText_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const QRect place = viewport()->rect().adjusted(kEmptyMargin, 0, -kEmptyMargin, 0);
  painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void CVxListCtrl::MarkMenuRow(const QModelIndex& row) {
  menuRow_ = row;
  viewport()->update();
}

void CVxListCtrl::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QTreeView::drawRow(painter, option, index);
  if (menuRow_.isValid() && index.row() == menuRow_.row()) {
    const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
    DrawSkinFocus(*painter, palette(), row, 0);
  }
}

void CVxListCtrl::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton && !rightPressSelects_) return;
  if (!TakesPress(*event)) Press(*event);
}

void CVxListCtrl::Press(QMouseEvent& event) {
  QTreeView::mousePressEvent(&event);
  const QModelIndex index = indexAt(event.position().toPoint());
  if (event.button() == Qt::LeftButton && index.isValid()) emit RowClicked(index.row());
}

void CVxListCtrl::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Mouse) {
    const QModelIndex pressed = indexAt(event->pos());
    const bool isOther = !rightPressSelects_ && !selectionModel()->isSelected(pressed);
    emit MenuRequested(isOther ? pressed : QModelIndex(), event->globalPos());
    return;
  }
  QPoint place(0, 0);
  if (currentIndex().isValid()) {
    scrollTo(currentIndex());
    place.setY(visualRect(currentIndex()).bottom() + 1);
  }
  emit MenuRequested({}, viewport()->mapToGlobal(place));
}

}  // namespace feedloom
