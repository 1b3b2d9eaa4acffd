// The whole window without a mouse, and without looking at it.
#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QSplitter>
#include <QTest>
#include <QToolTip>
#include <QTreeView>
#include <QWebEngineView>
#include <set>

#include "shell/ModuleFixture.h"
#include "vxctrl/AccessibleTree.h"

namespace feedloom {
namespace {

class Accessibility : public ModuleFixture {
 protected:
  void Open() {
    AddPosts(1, 3);
    CreateFrame();
    host_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(host_.get()));
    Tree().setFocus();
  }

  static void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }

  bool IsOnPage() {
    const QWidget* const focus = QApplication::focusWidget();
    return focus && frame_->findChild<QWebEngineView*>()->isAncestorOf(focus);
  }
  // The name of what has the keyboard.
  QString Place() {
    if (IsOnPage()) return "page";
    QWidget* const focus = QApplication::focusWidget();
    return focus ? SpokenName(*QAccessible::queryAccessibleInterface(focus)) : "nowhere";
  }

  // In the list when its name begins with "Post", in the tree else.
  QAccessibleInterface& RowNode(const QString& beginning) {
    QWidget& view = beginning.startsWith("Post") ? List() : Tree();
    for (QAccessibleInterface* const node : NodesBelow(view)) {
      const bool isRow = node->role() == QAccessible::TreeItem;
      if (isRow && node->text(QAccessible::Name).startsWith(beginning)) return *node;
    }
    ADD_FAILURE() << "no row " << beginning.toStdString();
    std::abort();
  }
  QString RowName(const QString& beginning) { return RowNode(beginning).text(QAccessible::Name); }
};

TEST_F(Accessibility, EverythingInTheWindowSaysWhatItIs) {
  Open();
  Select("Feedloom 시작하기(3)");
  EXPECT_EQ(Unlabelled(*frame_), QStringList());
  std::multiset<QString> buttons;
  std::multiset<QAccessible::Role> roles;
  for (const QAccessibleInterface* const node : NodesBelow(*frame_)) {
    roles.insert(node->role());
    if (qobject_cast<QAbstractButton*>(node->object())) buttons.insert(SpokenName(*node));
  }
  EXPECT_EQ(buttons.size(), 11u);
  EXPECT_EQ(std::set<QString>(buttons.begin(), buttons.end()).size(), 11u) << "two share a name";
  EXPECT_EQ(roles.count(QAccessible::ToolBar), 3u);
  EXPECT_EQ(roles.count(QAccessible::Separator), 2u);
}

TEST_F(Accessibility, RowsTellAllThatTheyShow) {
  Open();
  EXPECT_EQ(RowName("기본"), "기본 그룹, 읽지 않은 글 3개");
  EXPECT_TRUE(RowNode("기본").state().expanded && RowNode("기본").state().expandable);
  EXPECT_EQ(RowName("Feed"), "Feedloom 시작하기, 읽지 않은 글 3개");
  EXPECT_FALSE(RowNode("Feed").state().selected || RowNode("Feed").state().expandable);
  Select("Feedloom 시작하기(3)");
  EXPECT_EQ(RowName("Post 1"), "Post 1, 읽음");
  EXPECT_EQ(RowName("Post 2"), "Post 2, 읽지 않음");
  EXPECT_TRUE(RowNode("Feed").state().selected && RowNode("Feed").state().focused);
  Press(Qt::Key_Left);
  Press(Qt::Key_Left);
  EXPECT_FALSE(RowNode("기본").state().expanded);
}

TEST_F(Accessibility, RowsTellWhatHasChanged) {
  Open();
  const QString name = "Feedloom 시작하기";
  AddPosts(1, 2);
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(RowName("Feed"), name + ", 읽지 않은 글 5개, 새글 있음");
  Send(kMessageChannelResult, kDownloadFailed, 1);
  EXPECT_EQ(RowName("Feed"), name + ", 읽지 않은 글 5개, 새글 있음, 지난번 새로 고침 실패");
  EXPECT_EQ(RowNode("Feed").text(QAccessible::Description), "지난번에 채널을 내려받지 못했습니다.");
}

TEST_F(Accessibility, F6GoesRoundThePanesAndTabThroughTheWholeWindow) {
  Open();
  QStringList round;
  for (int i = 0; i < 3; ++i, Press(Qt::Key_F6)) round << Place();
  EXPECT_EQ(round, (QStringList{"채널과 보관함", "글 목록", "page"}));
  EXPECT_EQ(Place(), "채널과 보관함");
  Press(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_EQ(Place(), "page");
  Press(Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_EQ(Place(), "글 목록");

  for (auto* const button : frame_->findChildren<QAbstractButton*>()) {
    if (button->accessibleName() == "전체 메뉴") button->setFocus(Qt::TabFocusReason);
  }
  QStringList way;
  for (int i = 0; i < 30 && !IsOnPage(); ++i, Press(Qt::Key_Tab)) way << Place();
  EXPECT_EQ(way.join(", ").toStdString(),
            QStringList({"전체 메뉴", "모든 채널 새로 고침", "채널 추가", "채널 디렉터리",
                         "채널과 보관함", "검색 범위", "검색어", "검색", "글 목록",
                         "페이지 새로 고침", "주소", "이동"})
                .join(", ")
                .toStdString());
  ASSERT_TRUE(IsOnPage());
  EXPECT_TRUE(WaitUntil([this] {
    if (IsOnPage()) Press(Qt::Key_Tab);
    return !IsOnPage();
  })) << "the page must not keep the keyboard";
}

TEST_F(Accessibility, F8MovesTheDividersByKeys) {
  Open();
  auto& columns = *qobject_cast<QSplitter*>(frame_);
  auto& rows = *qobject_cast<QSplitter*>(columns.widget(1));
  Press(Qt::Key_F6);
  Press(Qt::Key_F8);
  EXPECT_EQ(Place(), "채널 영역의 너비");
  Press(Qt::Key_Right);
  EXPECT_EQ(columns.sizes()[0], 251 + 16);
  Press(Qt::Key_Home);
  EXPECT_EQ(columns.sizes()[0], 251);
  Press(Qt::Key_F8);
  EXPECT_EQ(Place(), "글 목록의 높이");
  Press(Qt::Key_Down);
  EXPECT_EQ(rows.sizes()[0], 200 + 16);
  Press(Qt::Key_Escape);
  EXPECT_EQ(Place(), "글 목록");
}

TEST_F(Accessibility, TipsAndMenusComeByKeys) {
  Open();
  Select("Feedloom 시작하기(3)");
  Send(kMessageChannelResult, kDownloadFailed, 1);
  Press(Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_TRUE(QToolTip::text().contains("못했습니다")) << QToolTip::text().toStdString();
  Press(Qt::Key_Right);
  EXPECT_TRUE(WaitUntil([] { return !QToolTip::isVisible(); }));
  const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
  for (QWidget* view : {&Tree(), &List()}) {
    view->setFocus();
    Press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(menu(), nullptr);
    menu()->close();
  }
  Press(Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_TRUE(QToolTip::text().contains("Post 1, 읽음")) << QToolTip::text().toStdString();
  QToolTip::hideText();
  Press(Qt::Key_F6);
  Press(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(WaitUntil([&] { return menu() != nullptr; })) << "the page's";
}

}  // namespace
}  // namespace feedloom
