// The browser with the real engine, off screen, and a real server for it.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/ComesTrue.h"

namespace feedloom {

class HtmlViewFixture : public testing::Test {
 protected:
  static void SetUpTestSuite() { PrepareBrowser(); }

  HtmlViewFixture() {
    QObject::connect(&view_, &CRSS_HtmlView::Reported, &view_,
                     [this](BrowserReport report, const QString& detail) {
                       reports_.emplace_back(report, detail);
                     });
    view_.resize(400, 300);
    view_.show();
  }

  QString SkinPath(const char* name) { return QString::fromStdString(skin_.File(name)); }
  QUrl Url(const std::string& path) { return QUrl(QString::fromStdString(server_.Url(path))); }

  // Each returns when its page is shown.
  void WaitForPage(const std::function<void()>& begin) {
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    begin();
    EXPECT_TRUE(shown.wait(30'000));
  }
  void WriteWhole(const QByteArray& html, PageKind kind = PageKind::Post, const QUrl& source = {}) {
    WaitForPage([&] { view_.WritePageToBrowser({html, kind, source}); });
  }
  void Write(const QByteArray& body, PageKind kind = PageKind::Post, const QUrl& source = {}) {
    WriteWhole("<html><head></head><body style='margin:0'>" + body + "</body></html>", kind,
               source);
  }
  void Navigate(const QUrl& url) {
    WaitForPage([&] { view_.Navigate(url); });
  }
  // Serves a web page with this body and goes there.
  void Visit(const std::string& path, const std::string& body) {
    server_.Serve(path, "<html><body style='margin:0'>" + body + "</body></html>", "text/html");
    Navigate(Url(path));
  }

  // A link that covers the upper left corner.
  static QByteArray Link(const std::string& address, const QByteArray& attributes = {}) {
    return "<a style='display:block;height:100px' " + attributes + " href=\"" +
           QByteArray::fromStdString(address) + "\">link</a>";
  }
  void Click() {
    QTest::mouseClick(view_.findChild<QWebEngineView*>()->focusProxy(), Qt::LeftButton, {},
                      {50, 50});
  }
  bool ClickLeadsTo(const QString& text) {
    QSignalSpy shown(&view_, &CRSS_HtmlView::PageShown);
    Click();
    return shown.wait(20'000) && Text() == text;
  }

  QWebEnginePage& Page() { return *view_.findChild<QWebEngineView*>()->page(); }

  // What the page shows. The engine answers when it is through with all that came before.
  QString Text() {
    std::optional<QString> text;
    Page().toPlainText([&text](const QString& plain) { text = plain; });
    EXPECT_TRUE(ComesTrue([&] { return text.has_value(); }));
    return text.value_or(QString());
  }
  // In the page's own world, or in one that it cannot enter.
  QVariant Evaluate(const QString& script, quint32 world = 1) {
    std::optional<QVariant> result;
    Page().runJavaScript(script, world, [&result](const QVariant& value) { result = value; });
    EXPECT_TRUE(ComesTrue([&] { return result.has_value(); }));
    return result.value_or(QVariant());
  }
  // At a point near the upper left corner.
  bool ComesToShow(QRgb color) {
    return ComesTrue([&] { return view_.grab().toImage().pixel(50, 50) == color; });
  }
  bool WasReported(BrowserReport report, const QString& detail) {
    const std::pair wanted(report, detail);
    return ComesTrue([&] { return std::ranges::find(reports_, wanted) != reports_.end(); });
  }

  TempFolder skin_;
  FeedServer server_;
  std::vector<std::pair<BrowserReport, QString>> reports_;
  QString downloadPlace_;  // the next answer; empty: none
  CRSS_HtmlView view_{{.skinDir = [this] { return QString::fromStdString(skin_.Path()); },
                       .crashPage =
                           [](const QUrl& crashed) {
                             return "<html><head></head><body style='margin:0'>crashed" +
                                    Link(crashed.toEncoded().toStdString()) + "</body></html>";
                           },
                       .downloadPlace = [this](const QString&) { return downloadPlace_; }},
                      nullptr};
};

}  // namespace feedloom
