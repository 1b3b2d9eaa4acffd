// The left pane on screen, over a real database, and what a user does and sees there.
#pragma once

#include <QtTest>
#include <QtWidgets>

#include "look/DialogAnswers.h"
#include "store/Cabinets.h"
#include "store/Folders.h"
#include "ui/Fakes.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/CRSS_LeftContainer.h"
#include "ui/tree/CRSS_LeftToolBarWnd.h"
#include "ui/tree/TreeLoader.h"

namespace feedloom {

using Strings = std::vector<std::string>;

struct LeftPaneFixture : testing::Test {
  LeftPaneFixture() {
    AddCabinet(store, "Later", 2);
    InsertScrapPost(store, keep, "Saved", "http://site.example/s", "2008-05-01 10:00:00", "text");
    frame.onRecount = [this](bool scrap) { pane->RecountUnread(scrap); };
  }
  void Open() {
    pane = std::make_unique<CRSS_LeftContainer>(frame, frame, frame, frame, nullptr);
    tree = pane->findChild<CRSS_GroupTreeCtrl*>();
    buttons = pane->findChildren<QAbstractButton*>();
    using Tester = QAbstractItemModelTester;
    new Tester(tree->model(), Tester::FailureReportingMode::Fatal, pane.get());
    pane->ShowTree(ReadTree(store).value());
    pane->resize(251, 400);
    pane->show();
    pane->activateWindow();
    pane->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return tree->hasFocus(); }));
  }

  // The labels on the screen, the selected row's in brackets.
  std::string Rows() const {
    QStringList rows;
    for (QModelIndex row = tree->model()->index(0, 0); row.isValid(); row = tree->indexBelow(row)) {
      const QString label = row.data().toString();
      rows << (row == tree->SelectedRow() ? "[" + label + "]" : label);
    }
    return rows.join(' ').toStdString();
  }
  // The posts that were listed last; "+" when they are saved ones.
  std::string Listed() const {
    std::string posts = frame.lists.back().areScrapPosts ? "+" : "";
    for (const PostRow& post : frame.lists.back().posts)
      posts += post.ownerTitle + " " + post.title + ", ";
    return posts;
  }
  // The row whose label begins like this.
  QModelIndex Row(const QString& label) const {
    const QAbstractItemModel& model = *tree->model();
    constexpr Qt::MatchFlags kHow = Qt::MatchStartsWith | Qt::MatchRecursive;
    return model.match(model.index(0, 0), Qt::DisplayRole, label, 1, kHow).value(0);
  }
  QPoint PlaceOf(const QString& label) const { return tree->visualRect(Row(label)).center(); }
  void Click(const QPoint& place, Qt::MouseButton button = Qt::LeftButton, bool ctrl = false) {
    QTest::mouseClick(tree->viewport(), button, ctrl ? Qt::ControlModifier : Qt::NoModifier, place);
  }
  void Press(Qt::Key key) { QTest::keyClick(tree, key); }

  // Of a row, by a right click; without a label, the menu button's.
  QMenu* OpenMenu(const QString& label) {
    if (label.isEmpty()) {
      buttons[CRSS_LeftToolBarWnd::kMenu]->click();
    } else {
      Click(PlaceOf(label), Qt::RightButton);
      QContextMenuEvent event(QContextMenuEvent::Mouse, PlaceOf(label), QPoint(50, 60));
      QCoreApplication::sendEvent(tree->viewport(), &event);
    }
    return pane->findChild<QMenu*>();
  }
  void Choose(const QString& label, int command) {
    QMenu* const menu = OpenMenu(label);
    for (QAction* const action : menu->findChildren<QAction*>())
      if (action->data().toInt() == command) action->trigger();
    delete menu;
    QCoreApplication::processEvents();  // the command comes when the menu has closed
  }

  FakeFrame frame;
  Store& store = frame.GetStore();
  const int news = AddFolder(store, "News", 1);
  const int sports = AddFolder(store, "Sports", 2);
  const int daily = frame.db.AddChannelWithPosts(news, "Daily", 2);
  const int weekly = frame.db.AddChannelWithPosts(news, "Weekly", 1);
  const int keep = AddCabinet(store, "Keep", 1);
  std::unique_ptr<CRSS_LeftContainer> pane;
  CRSS_GroupTreeCtrl* tree = nullptr;
  QList<QAbstractButton*> buttons;  // by CRSS_LeftToolBarWnd::Button
};

}  // namespace feedloom
