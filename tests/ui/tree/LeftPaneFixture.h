// The left pane on screen, over a real database.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Folders.h"
#include "ui/FakeFrame.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/CRSS_LeftContainer.h"
#include "vxctrl/QtText.h"

namespace feedloom {

// News holds Daily (2 posts) and Weekly (1), Sports holds nothing,
// and of the two cabinets Keep holds a saved post.
class LeftPaneFixture : public testing::Test {
 protected:
  LeftPaneFixture() {
    Store& store = frame.GetStore();
    news = AddFolder(store, "News", 1);
    AddFolder(store, "Sports", 2);
    daily = frame.db.AddChannelWithPosts(news, "Daily", 2);
    weekly = frame.db.AddChannelWithPosts(news, "Weekly", 1);
    keep = AddCabinet(store, "Keep", 1);
    AddCabinet(store, "Later", 2);
    InsertScrapPost(store, keep, "Saved", "http://site.example/s", "2008-05-01 10:00:00", "text");
  }

  void Open() {
    pane = std::make_unique<CRSS_LeftContainer>(frame, nullptr);
    frame.onRecount = [this](bool scrap) { pane->RecountUnread(scrap); };
    pane->LoadTree();
    pane->resize(251, 400);
    pane->show();
    pane->activateWindow();
    pane->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Tree().hasFocus(); }));
  }

  CRSS_GroupTreeCtrl& Tree() const { return *pane->findChild<CRSS_GroupTreeCtrl*>(); }

  // The row with this label, which is on the screen.
  QModelIndex Row(const QString& label) const {
    for (QModelIndex row = Tree().model()->index(0, 0); row.isValid();
         row = Tree().indexBelow(row)) {
      if (row.data().toString() == label) return row;
    }
    ADD_FAILURE() << "no row " << label.toStdString();
    return {};
  }

  QStringList Labels() const {
    QStringList labels;
    for (QModelIndex row = Tree().model()->index(0, 0); row.isValid();
         row = Tree().indexBelow(row)) {
      labels << row.data().toString();
    }
    return labels;
  }

  void Click(const QString& label, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
    const QPoint place = Tree().visualRect(Row(label)).center();
    QTest::mouseClick(Tree().viewport(), button, modifiers, place);
  }

  void MovePointer(QPoint place, Qt::MouseButtons buttons) {
    const QPointF global = Tree().viewport()->mapToGlobal(QPointF(place));
    QMouseEvent event(QEvent::MouseMove, place, global, Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(Tree().viewport(), &event);
  }

  void Press(Qt::Key key) { QTest::keyClick(&Tree(), key); }

  // By CRSS_LeftToolBarWnd::Button.
  QList<QAbstractButton*> Buttons() const { return pane->findChildren<QAbstractButton*>(); }

  // The menu that is open; null when none is.
  QMenu* OpenMenu() const {
    const auto menus = pane->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
    return menus.isEmpty() ? nullptr : menus.last();
  }

  void AskForMenu(QContextMenuEvent::Reason reason) {
    const QPoint place = Tree().visualRect(Tree().SelectedRow()).center();
    QContextMenuEvent event(reason, place, Tree().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(Tree().viewport(), &event);
  }

  // Right click on the row, and one of its menu's commands, which has to be enabled.
  void Choose(const QString& label, int command) {
    Click(label, Qt::RightButton);
    AskForMenu(QContextMenuEvent::Mouse);
    ASSERT_NE(OpenMenu(), nullptr);
    ChooseInMenu(command);
  }

  void ChooseInMenu(int command) {
    QAction* const action = Find(*OpenMenu(), command);
    ASSERT_NE(action, nullptr) << command;
    ASSERT_TRUE(action->isEnabled()) << command;
    action->trigger();
    CloseMenu();
    QCoreApplication::processEvents();  // the command comes when the menu has closed
  }

  void CloseMenu() {
    OpenMenu()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QAction* Find(const QMenu& menu, int command) {
    for (QAction* action : menu.actions()) {
      if (action->data().toInt() == command) return action;
      QAction* const inside = action->menu() == nullptr ? nullptr : Find(*action->menu(), command);
      if (inside != nullptr) return inside;
    }
    return nullptr;
  }

  int FolderId(const std::string& name) {
    return std::stoi(
        frame.db.Value("select folder_id from TB_FOLDER where folder_name = '" + name + "'"));
  }

  int Count(const std::string& table) {
    return std::stoi(frame.db.Value("select count(*) from " + table));
  }

  QString SelectedLabel() const { return Tree().SelectedRow().data().toString(); }

  QString CabinetTitle() const {
    return ToQString(CodePage::Korean(),
                     frame.skin.Get().GetText(kSectionTexts, kTextCabinetTitle));
  }

  std::vector<std::string> ListedTitles() const {
    std::vector<std::string> titles;
    for (const PostRow& post : frame.lists.back().posts) titles.push_back(post.title);
    return titles;
  }

  FakeFrame frame;
  int news = 0;
  int daily = 0;
  int weekly = 0;
  int keep = 0;
  std::unique_ptr<CRSS_LeftContainer> pane;
};

}  // namespace feedloom
