// The words of a search, marked in the posts that it has found.
#include <QClipboard>
#include <QMimeData>

#include "ui/browser/BrowserFixture.h"

namespace feedloom {

struct PageMarks : BrowserFixture {
  // Shows the post as a hit of the search and waits for as many marks.
  QString ShowHit(const PostRow& post, const std::string& query, int marks) {
    frame_.state.marked = query;
    Show(post);
    ComesTrue([&] {
      return Evaluate("document.querySelectorAll('feedloom-found').length").toInt() >= marks;
    });
    LetEngineFinish();
    return Marked();
  }
  QString Marked() const {
    return Evaluate("[...document.querySelectorAll('feedloom-found')].map(e => e.textContent)")
        .toStringList()
        .join('|');
  }
  // All that a reader, a copy or a search engine takes of the page.
  std::string Content() const {
    return Evaluate(
               "document.body.innerText + '\\n' + document.body.textContent + "
               "[...document.links].map(link => link.getAttribute('href'))")
        .toString()
        .toStdString();
  }
};

TEST_F(PageMarks, AreTheWordsThatTheSearchLooksForAndThePagesTextStays) {
  const PostRow post =
      Post("A Bridge", "/bridge",
           Korean("<p>&Uuml;ber die <b>Br&uuml;c</b>ke, 한강의 강물이 깊다.<br>x</p><ul><li>two<li>"
                  "metres</ul><a href='http://bridge/'>the bridge</a><script>bridge</script>"
                  "<svg><text>bridge</text></svg><form><input name=parentElement><input "
                  "name=nodeType>bridge</form>"));
  Show(post);
  const std::string before = Content();
  const std::tuple<const char*, int, const char*> cases[] = {
      {"bridge", 4, "Bridge|Bridge|bridge|bridge"},
      {"uber bruck*", 3, "Über|Brüc|ke"},
      {"강물", 1, "강물"},
      {"\"two metres\"", 2, "two|metres"},
      {"깊다 -bridge channel:x author:ke", 1, "깊다"},
      {"깊 \"]]);document.body.remove()//</script><img src=x onerror=alert(1)>", 1, "깊"},
      {"about* bridge", 5, "Bridge|About|Bridge|bridge|bridge"},
      {"", 0, ""}};
  for (const auto& [query, count, marked] : cases) {
    EXPECT_EQ(ShowHit(post, query, count).toStdString(), marked) << query;
    EXPECT_EQ(Content(), before) << query;
  }
}

TEST_F(PageMarks, ComeAgainWithThePageAndAreOnNoOther) {
  ShowHit(Post("bridge", "/"), "bridge", 2);
  Visit("/web", "<div id='title-0'>bridge</div>");
  EXPECT_EQ(Marked(), "");
  WaitForPage([&] { view_.GoBack(); });
  EXPECT_TRUE(ComesTrue([&] { return Marked() == "bridge|bridge"; }));
  frame_.state.marked = "";
  Show(Post("bridge", "/"));
  LetEngineFinish();
  EXPECT_EQ(Marked(), "");
}

TEST_F(PageMarks, AreBroughtIntoSightUnlessOneIsThere) {
  const std::string far = "<div style='height:3000px'></div><p>a bridge</p>";
  const auto isFirstInSight = [&] {
    return Evaluate(
               "(r => r.top >= 0 && r.bottom <= innerHeight)"
               "(document.querySelector('feedloom-found').getBoundingClientRect())") == true;
  };
  ShowHit(Post("far", "/", far), "bridge", 1);
  EXPECT_TRUE(ComesTrue(isFirstInSight));
  ShowHit(Post("bridge", "/", far), "bridge", 3);
  EXPECT_TRUE(isFirstInSight());
  EXPECT_EQ(Evaluate("scrollY"), 0);
}

TEST_F(PageMarks, AreNotCopied) {
  ShowHit(Post("post", "/", "<p>one <i>bridge</i> more</p>"), "bridge", 1);
  const auto ground = [&] {
    return Evaluate("getComputedStyle(document.querySelector('feedloom-found')).backgroundColor");
  };
  EXPECT_EQ(ground(), "rgb(255, 228, 148)");
  const QSignalSpy copied(QGuiApplication::clipboard(), &QClipboard::dataChanged);
  Press(QKeySequence::SelectAll);
  LetEngineFinish();
  Press(QKeySequence::Copy);
  ASSERT_TRUE(ComesTrue([&] { return !copied.isEmpty(); }));
  const QMimeData& copy = *QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(copy.text().contains("one bridge more"));
  EXPECT_TRUE(copy.html().contains("bridge</feedloom-found>"));
  EXPECT_FALSE(copy.html().contains("255, 228, 148"));
  EXPECT_TRUE(ComesTrue([&] { return ground() == "rgb(255, 228, 148)"; }));
}

}  // namespace feedloom
