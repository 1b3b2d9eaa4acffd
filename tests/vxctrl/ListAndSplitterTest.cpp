#include <gtest/gtest.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QToolTip>

#include "vxctrl/CVxListCtrl.h"
#include "vxctrl/VxSplitter.h"

namespace feedloom {
namespace {

// A list of 40 rows, of which about five are seen, and three columns in a shown window.
class List : public testing::Test {
 protected:
  List() {
    model_.setHorizontalHeaderLabels({"A", "B", "C"});
    for (int row = 0; row < 40; ++row) model_.setItem(row, 2, new QStandardItem("c"));
    list_.setModel(&model_);
    list_.SetColumnWidths({60, 50});
    list_.setGeometry(0, 0, 140, 130);
    window_.resize(200, 200);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    list_.setFocus();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window_.focusWidget(), key, modifiers);
  }
  void Click(int row, Qt::KeyboardModifiers modifiers = {},
             Qt::MouseButton button = Qt::LeftButton) {
    const QPoint place = list_.visualRect(model_.index(row, 0)).center();
    QTest::mouseClick(list_.viewport(), button, modifiers, place);
  }
  QHeaderView& Header() { return *list_.header(); }

  QStandardItemModel model_;
  QWidget window_;
  CVxListCtrl list_{&window_};
};

TEST_F(List, ClicksSelectRowsAndTheLeftButtonTellsOfIt) {
  EXPECT_EQ(list_.visualRect(model_.index(1, 1)), QRect(60, 19, 50, 19));
  EXPECT_EQ(list_.columnWidth(2), 100);
  QSignalSpy clicks(&list_, &CVxListCtrl::RowClicked);
  Click(1);
  Click(3, Qt::ShiftModifier);
  EXPECT_EQ(list_.SelectedRows(), (std::vector{1, 2, 3}));
  Click(2, Qt::ControlModifier);
  Click(0, {}, Qt::RightButton);
  model_.setRowCount(4);
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, {5, 100});
  EXPECT_EQ(clicks, (QList<QVariantList>{{1}, {3}, {2}}));
}

TEST_F(List, ShiftSelectsFromTheAnchorUntilTheUserChoosesAnotherRow) {
  const auto selectedAfter = [&](auto deed) {
    Click(0);
    list_.SetAnchor(3);
    deed();
    Click(4, Qt::ShiftModifier);
    return list_.SelectedRows();
  };
  EXPECT_EQ(selectedAfter([] {}), (std::vector{3, 4}));
  EXPECT_EQ(selectedAfter([&] { Click(2); }), (std::vector{2, 3, 4}));
  EXPECT_EQ(selectedAfter([&] { Key(Qt::Key_Down); }), (std::vector{1, 2, 3, 4}));
  EXPECT_EQ(selectedAfter([&] { Key(Qt::Key_Shift); }), (std::vector{3, 4}));
}

TEST_F(List, TheEndIsToldWhenTheUserReachesItOrAsksForIt) {
  QSignalSpy ends(&list_, &CVxListCtrl::EndReached);
  const auto count = [&] {
    return std::exchange(static_cast<QList<QVariantList>&>(ends), {}).size();
  };
  Key(Qt::Key_Down);
  Key(Qt::Key_PageDown);
  EXPECT_EQ(count(), 0);
  Key(Qt::Key_End);
  EXPECT_EQ(count(), 1);
  Key(Qt::Key_Down);
  EXPECT_EQ(count(), 1);
  Key(Qt::Key_Up);
  list_.verticalScrollBar()->setValue(0);  // not by the user
  list_.verticalScrollBar()->setValue(999);
  EXPECT_EQ(count(), 0);
  list_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
  EXPECT_EQ(count(), 1);
  model_.setRowCount(2);
  Key(Qt::Key_PageDown);
  EXPECT_EQ(count(), 0) << "all rows fit";
  Key(Qt::Key_End);
  EXPECT_EQ(count(), 1);
}

TEST_F(List, TheHeaderIsWorkedByKeys) {
  EXPECT_EQ(Header().accessibleName(), "A");
  QSignalSpy orders(&list_, &CVxListCtrl::SortRequested);
  Key(Qt::Key_Up, Qt::AltModifier);
  ASSERT_TRUE(Header().hasFocus());
  QString names;
  for (const Qt::Key key :
       {Qt::Key_Right, Qt::Key_Left, Qt::Key_Left, Qt::Key_End, Qt::Key_Right, Qt::Key_Home}) {
    Key(key);
    names += Header().accessibleName();
  }
  EXPECT_EQ(names, "BAACCA");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Space}) Key(key);
  const auto up = QVariant::fromValue(Qt::AscendingOrder),
             down = QVariant::fromValue(Qt::DescendingOrder);
  EXPECT_EQ(orders, (QList<QVariantList>{{0, up}, {0, down}, {-1, up}, {0, up}}));
  list_.ClearSorting();
  EXPECT_EQ(Header().sortIndicatorSection(), -1);
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(0), 70);
  for (int i = 0; i < 9; ++i) Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(0), 16);
  Key(Qt::Key_End);
  EXPECT_EQ(Header().sectionViewportPosition(2) + 100, Header().viewport()->width());
  model_.setHeaderData(2, Qt::Horizontal, "spoken", Qt::AccessibleTextRole);
  EXPECT_EQ(Header().accessibleName(), "spoken");
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Escape}) {
    Header().setFocus();
    Key(key);
    EXPECT_TRUE(list_.hasFocus());
  }
}

TEST_F(List, AClosedListTakesNoInputAndKeepsTheKeyboardsPlace) {
  list_.setAccessibleName("Posts");
  list_.SetClosed(true);
  QWidget* const cover = window_.focusWidget();
  EXPECT_EQ(window_.childAt(70, 60), cover);
  EXPECT_EQ(cover->geometry(), list_.geometry());
  EXPECT_EQ(cover->cursor().shape(), Qt::WaitCursor);
  EXPECT_EQ(cover->accessibleName(), "Posts");
  list_.setGeometry(10, 10, 50, 50);
  EXPECT_EQ(cover->geometry(), list_.geometry());
  list_.SetClosed(false);
  EXPECT_TRUE(list_.isEnabled() && list_.hasFocus() && !cover->isVisible());
}

TEST_F(List, MenuAndTipComeByKeysAtTheCurrentRow) {
  QSignalSpy menus(&list_, &CVxListCtrl::MenuRequested);
  list_.setCurrentIndex(model_.index(1, 2));
  model_.item(1, 2)->setToolTip("<p>tip</p>");
  for (const auto reason : {QContextMenuEvent::Keyboard, QContextMenuEvent::Mouse}) {
    QContextMenuEvent event(reason, {5, 5}, {77, 88});
    QApplication::sendEvent(list_.viewport(), &event);
  }
  EXPECT_EQ(menus[0][0], list_.viewport()->mapToGlobal(QPoint(0, 38)));
  EXPECT_EQ(menus[1][0], QPoint(77, 88));
  Key(Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(QToolTip::text(), "<p>tip</p>");
  model_.item(1, 2)->setToolTip({});
  model_.item(1, 2)->setData("a < b", Qt::AccessibleTextRole);
  Key(Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(QToolTip::text(), "<p>a &lt; b</p>");
}

TEST(VxSplitterTest, TheArrowKeysMoveAHandleWhichEnterAndEscapeLeave) {
  for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
    VxSplitter splitter(orientation);
    for (int i = 0; i < 2; ++i) splitter.addWidget(new QWidget);
    splitter.resize(200, 200);
    splitter.setSizes({100, 100 - splitter.handleWidth()});
    splitter.show();
    QSplitterHandle& handle = *splitter.handle(1);
    const QSignalSpy left(&splitter, &VxSplitter::HandleLeft);
    std::vector<int> sizes;
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Return,
                              Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Home, Qt::Key_End}) {
      QTest::keyClick(&handle, key);
      sizes.push_back(splitter.sizes()[0]);
    }
    EXPECT_EQ(sizes,
              std::vector({84, 100, 116, 100, 100, 100, 100, 0, 200 - splitter.handleWidth()}));
    EXPECT_EQ(left.count(), 3);
    const QImage without = handle.grab().toImage();
    splitter.activateWindow();
    handle.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return handle.hasFocus(); }));
    EXPECT_NE(handle.grab().toImage(), without);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&handle)->role(), QAccessible::Separator);
  }
}

}  // namespace
}  // namespace feedloom
