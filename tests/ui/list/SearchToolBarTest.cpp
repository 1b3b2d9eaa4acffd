#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

using SearchToolBarTest = PostListPane;

TEST_F(SearchToolBarTest, HasTheSkinsSizeTellsWhatItsControlsAreAndShrinksTheWordFirst) {
  EXPECT_EQ(bar_.sizeHint(), QSize(508, 40));
  EXPECT_EQ(bar_.objectName() + bar_.accessibleName(), "RSS_RightTopToolBar검색 도구 모음");
  EXPECT_EQ(scope_.toolTip() + word_.accessibleName() + button_.toolTip(), "검색 범위검색어검색");
  for (const auto& [width, scope, word] :
       {std::tuple(508, 84, 172), {312, 84, 172}, {302, 84, 162}, {172, 76, 40}, {100, 40, 40}}) {
    bar_.resize(width, 40);
    EXPECT_EQ(scope_.geometry().x() * 1000 + scope_.width(), 8000 + scope) << width;
    EXPECT_EQ(word_.geometry(), QRect(12 + scope, (40 - word_.height()) / 2, word, word_.height()));
    EXPECT_EQ(button_.x(), 16 + scope + word);
  }
}

TEST_F(SearchToolBarTest, ButtonAndEnterSearchTheWebForTheWordAndEscapeLeavesIt) {
  EXPECT_EQ(scope_.currentText(), "웹");
  EXPECT_TRUE(bar_.Scope() == SearchScope::Web);
  QTest::keyClick(&scope_, Qt::Key_Down);
  EXPECT_EQ(scope_.currentText(), "로컬");
  EXPECT_TRUE(bar_.Scope() == SearchScope::Local);
  QObject::disconnect(&bar_, nullptr, &pane_, nullptr);
  const QSignalSpy searches(&bar_, &CRSS_RightTopToolBarWnd::SearchRequested);
  const QSignalSpy escapes(&bar_, &CRSS_RightTopToolBarWnd::EscapePressed);
  word_.setText("똠방각하");
  bar_.FocusWord();
  EXPECT_EQ(word_.selectedText(), "똠방각하");
  EXPECT_EQ(bar_.Word(), CodePage::Korean().FromUtf8("똠방각하"));
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) Key(key);
  button_.click();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&word_, &held);
  EXPECT_TRUE(searches.count() == 3 && escapes.empty());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(searches.count() == 3 && escapes.count() == 1);
}

TEST_F(SearchToolBarTest, ShowsACountOfOneOrMoreBehindTheControls) {
  const auto picture = [&](int top, int height) {
    return bar_.grab(QRect(312, top, 196, height)).toImage();
  };
  const QImage above = picture(0, 12), bare = picture(12, 28);
  for (const auto& [count, text] :
       {std::pair(1, "검색결과 : 1건"), {0, ""}, {32, "검색결과 : 32건"}, {-1, ""}}) {
    bar_.SetResultCount(count);
    EXPECT_EQ(bar_.accessibleDescription(), text);
    EXPECT_EQ(word_.accessibleDescription(), text);
    EXPECT_EQ(picture(12, 28) == bare, *text == 0);
    EXPECT_EQ(picture(0, 12), above);
  }
}

}  // namespace
}  // namespace feedloom
