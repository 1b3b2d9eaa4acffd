// The browser with the real engine.

#include "ui/browser/HtmlViewFixture.h"

namespace feedloom {
namespace {

constexpr QRgb kGreen = 0xFF00FF00;

class HtmlView : public HtmlViewFixture {
 protected:
  HtmlView() {
    QImage green(8, 8, QImage::Format_RGB32);
    green.fill(Qt::green);
    EXPECT_TRUE(green.save(SkinPath("green.png")));
  }
};

TEST_F(HtmlView, AWrittenPageComesOnScreen) {
  for (const QColor color : {Qt::red, Qt::blue, Qt::red}) {
    Write("<div style='height:300px;background:" + color.name().toLatin1() + "'></div>");
    EXPECT_TRUE(ComesToShow(color.rgb()));
  }
}

TEST_F(HtmlView, TextsOfAnyScriptAndPagesOfManyMegabytesArrive) {
  Write("한글 똠방각하");
  EXPECT_EQ(Text(), "한글 똠방각하");
  Write("<!--" + QByteArray(5 << 20, 'x') + "-->the end");
  EXPECT_EQ(Text(), "the end");
}

TEST_F(HtmlView, SkinImagesShowInGeneratedPages) {
  Write("<img width=100 height=100 src=\"" + SkinPath("green.png").toUtf8() + "\">");
  EXPECT_TRUE(ComesToShow(kGreen));
}

TEST_F(HtmlView, AnEmptyPageIsNotWritten) {
  Write("stays");
  view_.WritePageToBrowser({});
  EXPECT_EQ(Text(), "stays");
}

TEST_F(HtmlView, GeneratedPagesRunNoScriptsAndWebPagesDo) {
  const QByteArray script = "<div id=d>still</div><script>d.textContent = 'ran'</script>";
  Write(script);
  EXPECT_EQ(Text(), "still");
  server_.Serve("/page", script.toStdString(), "text/html");
  Navigate(Url("/page"));
  EXPECT_EQ(Text(), "ran");
  Write(script);
  EXPECT_EQ(Text(), "still");
}

TEST_F(HtmlView, WebPagesSeeNothingOfTheSkin) {
  server_.Serve("/page",
                "<div id=d></div><img onload=\"d.textContent = 'seen'\" "
                "onerror=\"d.textContent = 'refused'\" src=\"feedloom://page" +
                    skin_.File("green.png") + "\">",
                "text/html");
  Navigate(Url("/page"));
  EXPECT_EQ(Text(), "refused");
}

TEST_F(HtmlView, ALinkLeadsWhereItsServerSendsIt) {
  server_.Serve("/story", "the story", "text/html");
  server_.Redirect("/link", server_.Url("/story"));
  Write(Link(server_.Url("/link")));
  EXPECT_TRUE(ClickLeadsTo("the story"));
  Write(Link(server_.Url("/link"), "target=_blank"));
  EXPECT_TRUE(ClickLeadsTo("the story"));
}

TEST_F(HtmlView, AGeneratedPageLeadsNowhereByItself) {
  server_.Serve("/trap", "the trap", "text/html");
  Write("<meta http-equiv=refresh content=\"0;url=" +
        QByteArray::fromStdString(server_.Url("/trap")) + "\">stays" +
        Link("file:///etc/hostname"));
  EXPECT_FALSE(server_.WaitForRequest("/trap", std::chrono::milliseconds(300)));
  Click();
  EXPECT_FALSE(server_.WaitForRequest("/trap", std::chrono::milliseconds(300)));
  EXPECT_TRUE(Text().startsWith("stays")) << Text().toStdString();
}

TEST_F(HtmlView, BackBringsAGeneratedPageAgainWithoutScripts) {
  server_.Serve("/page", "a web page", "text/html");
  Write("<div id=d>still</div><script>d.textContent = 'ran'</script>");
  Navigate(Url("/page"));
  WaitForPage([&] { view_.GoBack(); });
  EXPECT_EQ(Text(), "still");
}

TEST_F(HtmlView, APageThatCannotBeLoadedCountsAsShown) {
  Navigate(QUrl("feedloom://page/4711"));
  Navigate(QUrl("http://127.0.0.1:1/"));
}

}  // namespace
}  // namespace feedloom
