// The keys of the list and of the splitter. The panes' tests work with the rest of the list.

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "controls/CVxListCtrl.h"
#include "controls/VxSplitter.h"

namespace feedloom {

// A list of 40 rows, of which about five are seen.
struct List : testing::Test {
  List() {
    for (int row = 0; row < 40; ++row) model_.setItem(row, 2, new QStandardItem);
    list_.setModel(&model_);
    model_.item(39, 2)->setToolTip("the last");
    list_.resize(140, 130);
    window_.show(), window_.activateWindow(), list_.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list_.hasFocus(); }));
  }

  QStandardItemModel model_;
  QWidget window_;
  CVxListCtrl list_{&window_};
};

TEST_F(List, TheHeadersKeysChooseSortAndWidenAColumnThatIsInSight) {
  // A key, the chosen column, the sorted one, its order, and the second column's width.
  const QString steps =
      "Alt+Up=1 -1 0 100;End=3 -1 0 100;Right=3 -1 0 100;Left=2 -1 0 100;Home=1 -1 0 100;"
      "Left=1 -1 0 100;Right=2 -1 0 100;Ctrl+Right=2 -1 0 110;Ctrl+Left=2 -1 0 100;"
      "Return=2 1 0 100;Space=2 1 1 100;Enter=2 -1 0 100";
  auto& header = *list_.header();
  EXPECT_EQ(header.accessibleName(), "1");
  const QSignalSpy sorted(&list_, &CVxListCtrl::SortRequested);
  for (const QString& step : steps.split(';')) {
    QTest::keySequence(QApplication::focusWidget(), step.section('=', 0, 0));
    const QString chosen = header.accessibleName();
    const int sort = header.sortIndicatorSection(), order = header.sortIndicatorOrder();
    EXPECT_EQ(QString("%1 %2 %3 %4").arg(chosen).arg(sort).arg(order).arg(header.sectionSize(1)),
              step.section('=', 1));
    const int left = header.sectionViewportPosition(chosen.toInt() - 1);
    EXPECT_TRUE(left >= 0 && left + 100 <= header.viewport()->width()) << left;
  }
  EXPECT_EQ(sorted.count(), 3);
  for (int i = 0; i < 20; ++i) QTest::keyClick(&header, Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(header.sectionSize(1), 16);
  for (const auto key : {Qt::Key_Down, Qt::Key_Escape}) {
    header.setFocus(), QTest::keyClick(&header, key);
    EXPECT_TRUE(list_.hasFocus());
  }
}

TEST_F(List, KeysBringTheMenuAndTheTipOfTheCurrentRowAndAnAnchorMovesTheStart) {
  QSignalSpy menus(&list_, &CVxListCtrl::MenuRequested);
  for (const int row : {-1, 39}) {
    list_.verticalScrollBar()->setValue(0);
    list_.setCurrentIndex(model_.index(row, 2));
    const QColor edge = list_.viewport()->grab().toImage().pixelColor(0, 50);
    EXPECT_EQ(edge == list_.palette().color(QPalette::Link), row < 0) << "the whole has the ring";
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list_.viewport(), &event);
    const QRect place = list_.visualRect(model_.index(row, 0));
    EXPECT_EQ(menus.takeFirst()[1],
              list_.viewport()->mapToGlobal(QPoint(0, row < 0 ? 0 : place.bottom() + 1)));
  }
  QTest::keyClick(&list_, Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(QToolTip::text(), "the last");
  list_.SetAnchor(36);
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, Qt::ShiftModifier,
                    list_.visualRect(model_.index(38, 2)).center());
  EXPECT_EQ(list_.SelectedRows(), (std::vector{36, 37, 38}));
}

TEST_F(List, TheEndIsToldWhenTheUserReachesItOrAsksForIt) {
  QSignalSpy ends(&list_, &CVxListCtrl::EndReached);
  const auto press = [&](Qt::Key key) { QTest::keyClick(&list_, key); };
  const auto scroll = [&](int value) { list_.verticalScrollBar()->setValue(value); };
  const std::pair<std::function<void()>, int> kDeeds[] = {
      {[&] { press(Qt::Key_PageDown); }, 0},
      {[&] { press(Qt::Key_End); }, 1},
      {[&] { press(Qt::Key_Down); }, 2},
      {[&] { press(Qt::Key_Up); }, 2},
      {[&] { scroll(0), scroll(999); }, 2},  // not by the user
      {[&] { list_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum); }, 3},
      {[&] { model_.setRowCount(2), press(Qt::Key_PageDown); }, 3},  // all rows fit
      {[&] { press(Qt::Key_End); }, 4}};
  for (const auto& [deed, count] : kDeeds) {
    deed();
    EXPECT_EQ(ends.count(), count);
  }
}

TEST(VxSplitterTest, TheArrowKeysMoveAHandleWhichEnterAndEscapeLeave) {
  VxSplitter splitter(Qt::Horizontal);
  for (int i = 0; i < 2; ++i) splitter.addWidget(new QWidget);
  splitter.resize(200, 200);
  splitter.setSizes({100, 100 - splitter.handleWidth()});
  splitter.show();
  const QSignalSpy left(&splitter, &VxSplitter::HandleLeft);
  for (const auto& [key, size] : {std::pair(Qt::Key_Left, 84),
                                  {Qt::Key_Down, 100},
                                  {Qt::Key_Right, 116},
                                  {Qt::Key_Up, 100},
                                  {Qt::Key_Home, 0},
                                  {Qt::Key_End, 200 - splitter.handleWidth()},
                                  {Qt::Key_Return, 200 - splitter.handleWidth()}}) {
    QTest::keyClick(splitter.handle(1), key);
    EXPECT_EQ(splitter.sizes()[0], size);
  }
  EXPECT_EQ(left.count(), 1);
}

}  // namespace feedloom
