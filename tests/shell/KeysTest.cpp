// Keys in the whole window: what they do, whose they are, and the sheet that tells them.

#include <QTreeWidget>

#include "shell/ModuleFixture.h"
#include "ui/list/PostCells.h"

namespace feedloom {

struct Keys : ModuleFixture {};

TEST_F(Keys, APostGlimpsedFromTheTreeIsReadWhenTheKeyboardGoesToListOrPage) {
  ASSERT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueSelection, kSelectionCareful));
  AddPosts(1, 4);
  CreateFrame();
  for (const char* const away : {"F6", "Shift+F6"}) {
    const auto read = [this] { return Sql("select sum(post_readStatus) from TB_POST"); };
    Sql("update TB_POST set post_readStatus = 0");
    Tree().setFocus();
    Press("Down");
    const auto& rest = *Tree().findChild<QTimer*>("keyRest");
    EXPECT_TRUE(WaitUntil([&] { return !rest.isActive(); }));
    EXPECT_EQ(Titles().size(), 4);
    EXPECT_EQ(read(), "0");
    Press(away);
    EXPECT_EQ(read(), "1") << away;
  }
}

TEST_F(Keys, LettersGiveTheirCommandsWhereverTheKeyboardIsButWhereOneTypes) {
  AddPosts(1, 4);
  server_.Serve("/form",
                "<p id=said></p><input autofocus onfocus='said.textContent = \"ready\"' "
                "oninput='said.textContent = value'>",
                "text/html");
  CreateFrame();
  Select("Feedloom 시작하기(4)");
  const auto read = [this] { return Sql("select sum(post_readStatus) from TB_POST"); };
  EXPECT_TRUE(Shows("Text 1"));
  Press("F6, F6, J");  // from the tree to the page
  EXPECT_EQ(List().currentIndex().data(), "Post 2");
  EXPECT_TRUE(Shows("Text 2"));
  EXPECT_EQ(read(), "2");
  Press("M");
  EXPECT_EQ(read(), "1");
  Press("Space");  // the page is short
  EXPECT_TRUE(WaitUntil([this] { return List().currentIndex().data() == "Post 3"; }));
  auto& button = *frame_->findChild<QAbstractButton*>();
  QSignalSpy presses(&button, &QAbstractButton::pressed);
  button.setFocus();
  Press("Space, K");
  EXPECT_EQ(presses.count(), 1);
  EXPECT_EQ(List().currentIndex().data(), "Post 2");
  Tree().setFocus();
  Press("Ctrl+F, N, M, Space, Delete, ?");
  EXPECT_EQ(dynamic_cast<QLineEdit&>(*QApplication::focusWidget()).text(), "nm ?");
  Press("Ctrl+L");
  dynamic_cast<QLineEdit&>(*QApplication::focusWidget()).setText(server_.Url("/form").c_str());
  Press("Return");
  EXPECT_TRUE(Shows("ready"));
  EXPECT_TRUE(WaitUntil(
      [] { return QApplication::focusWidget()->inputMethodQuery(Qt::ImEnabled).toBool(); }));
  Press("N, M, Space, O");
  EXPECT_TRUE(Shows("nm o"));
  EXPECT_EQ(List().currentIndex().data(), "Post 2");
}

TEST_F(Keys, AKeyHeldDownMarksAndAsksOnce) {
  AddPosts(1, 3);
  CreateFrame();
  Select("Feedloom 시작하기(3)");
  List().setFocus();
  int asked = 0;
  answers_.Next([&](QDialog& question) { ++asked, question.reject(); });
  for (const int key : {Qt::Key_M, Qt::Key_N, Qt::Key_U, Qt::Key_Delete}) {
    const QString letter = key == Qt::Key_Delete ? "" : QString(QChar(key).toLower());
    for (const bool isRepeated : {false, true, true})
      QTest::simulateEvent(&List(), true, key, {}, letter, isRepeated);
  }
  EXPECT_EQ(Sql("select sum(post_readStatus) from TB_POST"), "1") << "Post 1 is unread again";
  EXPECT_TRUE(The<Desk>().State().isUnreadOnly);
  EXPECT_EQ(asked, 1);
}

TEST_F(Keys, OneSheetOfThemIsShownByTheirKeyAndForTheHost) {
  CreateFrame();
  QStringList groups;
  const auto read = [&](QDialog& sheet) {
    Send(kMessageShowKeys);  // a second sheet would wait for an answer, too
    groups << sheet.findChild<QTreeWidget*>()->topLevelItem(0)->text(0);
    QTest::keyClick(&sheet, Qt::Key_Escape);
  };
  for (int i = 0; i < 2; ++i) answers_.Next(read);
  Press("F1");
  Send(kMessageShowKeys);
  EXPECT_EQ(groups.size(), 2);
}

}  // namespace feedloom
