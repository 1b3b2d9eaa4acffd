#include "controls/ColumnFill.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeView>
#include <algorithm>

namespace feedloom {
namespace {

constexpr int kNarrowest = 80;  // pixels; with less room the view scrolls sideways

class ColumnFill : public QObject {
 public:
  ColumnFill(QTreeView& view, int column) : QObject(&view), view_(view), column_(column) {
    view.viewport()->installEventFilter(this);
    connect(view.header(), &QHeaderView::sectionResized, this, &ColumnFill::PassOn);
    Fill();
  }

  bool eventFilter(QObject* /*viewport*/, QEvent* event) override {
    if (event->type() == QEvent::Resize) Fill();
    return false;
  }

 private:
  void Fill() {
    const QScopedValueRollback filling(isFilling_, true);
    QHeaderView& header = *view_.header();
    const int others = header.length() - header.sectionSize(column_);
    header.resizeSection(column_, std::max(view_.viewport()->width() - others, kNarrowest));
  }

  void PassOn(int column, int before, int now) {
    if (isFilling_) return;
    QHeaderView& header = *view_.header();
    const int next = column + 1;
    if (next != column_ && next < header.count()) {
      const QScopedValueRollback filling(isFilling_, true);
      const int left = header.sectionSize(next) + before - now;
      header.resizeSection(next, std::max(left, header.minimumSectionSize()));
    }
    Fill();
  }

  QTreeView& view_;
  const int column_;
  bool isFilling_ = false;
};

}  // namespace

void FillRoom(QTreeView& view, int column) { new ColumnFill(view, column); }

}  // namespace feedloom
