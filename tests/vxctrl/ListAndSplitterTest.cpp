// The keys of the list and of the splitter. The panes' tests work with the rest of the list.

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include "vxctrl/CVxListCtrl.h"
#include "vxctrl/VxSplitter.h"

namespace feedloom {
namespace {

// A list of 40 rows, of which about five are seen.
class List : public testing::Test {
 protected:
  List() {
    for (int row = 0; row < 40; ++row) model_.setItem(row, 2, new QStandardItem);
    list_.setModel(&model_);
    list_.resize(140, 130);
    list_.show();
  }

  QStandardItemModel model_;
  CVxListCtrl list_{nullptr};
};

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
                                  {Qt::Key_Return, 100}}) {
    QTest::keyClick(splitter.handle(1), key);
    EXPECT_EQ(splitter.sizes()[0], size);
  }
  EXPECT_EQ(left.count(), 1);
}

}  // namespace
}  // namespace feedloom
