// The browser with the real engine.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWebEngineView>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomContainer.h"

namespace feedloom {
namespace {

constexpr QRgb kGreen = 0xFF00FF00;

class HtmlView : public testing::Test {
 protected:
  static void SetUpTestSuite() { PrepareBrowser(); }

  HtmlView() {
    QImage green(8, 8, QImage::Format_RGB32);
    green.fill(Qt::green);
    EXPECT_TRUE(green.save(SkinPath("green.png")));
    view_.resize(400, 300);
    view_.show();
  }

  QString SkinPath(const char* name) { return QString::fromStdString(skin_.File(name)); }

  void Write(const QByteArray& body, PageKind kind = PageKind::Preview) {
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    view_.WritePage("<html><head></head><body style='margin:0'>" + body + "</body></html>", kind);
    EXPECT_TRUE(shown.wait(30'000));
  }

  void Navigate(const QUrl& url) {
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    view_.Navigate(url);
    EXPECT_TRUE(shown.wait(30'000));
  }

  QWebEnginePage& Page() { return *view_.findChild<QWebEngineView*>()->page(); }

  QString Text() {
    std::optional<QString> text;
    Page().toPlainText([&text](const QString& plain) { text = plain; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return text.has_value(); }, 20'000));
    return text.value_or(QString());
  }

  // At a point near the upper left corner.
  bool ComesToShow(QRgb color) {
    return QTest::qWaitFor([&] { return view_.grab().toImage().pixel(50, 50) == color; }, 20'000);
  }

  TempFolder skin_;
  FeedServer server_;
  CRSS_HtmlView view_{QString::fromStdString(skin_.Path()), nullptr};
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
  view_.WritePage("", PageKind::Preview);
  EXPECT_EQ(Text(), "stays");
}

TEST_F(HtmlView, GeneratedPagesRunNoScriptsAndWebPagesDo) {
  const QByteArray script = "<div id=d>still</div><script>d.textContent = 'ran'</script>";
  Write(script);
  EXPECT_EQ(Text(), "still");
  server_.Serve("/page", script.toStdString(), "text/html");
  Navigate(QUrl(QString::fromStdString(server_.Url("/page"))));
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
  Navigate(QUrl(QString::fromStdString(server_.Url("/page"))));
  EXPECT_EQ(Text(), "refused");
}

}  // namespace
}  // namespace feedloom
