// The browser pane on screen, over a real database, with a real server to visit.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QWebEngineHistory>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <algorithm>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "skin/Keys.h"
#include "ui/FakeFrame.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"
#include "ui/browser/ComesTrue.h"
#include "vxctrl/QtText.h"
#include "vxctrl/SkinText.h"

namespace feedloom {

class BrowserPaneFixture : public testing::Test {
 protected:
  static void SetUpTestSuite() { PrepareBrowser(); }

  BrowserPaneFixture() {
    pane_.resize(640, 400);
    pane_.show();
    pane_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&pane_));
  }

  // A post of the store; its link is a path of the server.
  PostRow Post(const std::string& title, const std::string& path) const {
    PostRow post;
    post.title = title;
    post.link = server_.Url(path);
    post.published = "2008-05-01 10:00:00";
    post.description = "<p>About " + title + "</p>";
    return post;
  }

  // Each of these returns when its page is shown.
  void WaitForPage(const std::function<void()>& begin) {
    QSignalSpy shown(&pane_, &CRSS_RightBottomContainer::PageShown);
    begin();
    EXPECT_TRUE(shown.wait(30'000));
  }
  void Show(const PostRow& post) {
    WaitForPage([&] { pane_.ShowPost(post); });
  }
  void ShowMainPage() {
    WaitForPage([&] { pane_.ShowMainPage(); });
  }
  void GoTo(const QString& typed) {
    Address().setFocus();
    Address().setText(typed);
    WaitForPage([&] { QTest::keyClick(&Address(), Qt::Key_Return); });
  }
  // Serves a web page and goes there.
  void Visit(const std::string& path, const std::string& html) {
    server_.Serve(path, html, "text/html");
    GoTo(Url(path));
  }
  void PressForPage(const char* tooltipKey) {
    WaitForPage([&] { Button(tooltipKey).click(); });
  }

  QString Url(const std::string& path) const { return QString::fromStdString(server_.Url(path)); }

  // By the key of its tooltip.
  QAbstractButton& Button(const char* tooltipKey) const {
    const QString tooltip = SkinText(frame_.GetSkin(), tooltipKey);
    for (auto* const button : toolbar_.findChildren<QAbstractButton*>()) {
      if (button->toolTip() == tooltip) return *button;
    }
    throw std::runtime_error(tooltipKey);
  }
  QLineEdit& Address() const { return *toolbar_.findChild<QLineEdit*>(); }
  QWebEnginePage& Page() const { return *pane_.findChild<QWebEngineView*>()->page(); }
  QWidget& Surface() const { return *pane_.findChild<QWebEngineView*>()->focusProxy(); }

  QVariant Evaluate(const QString& script) const {
    std::optional<QVariant> result;
    Page().runJavaScript(script, 1, [&result](const QVariant& value) { result = value; });
    EXPECT_TRUE(ComesTrue([&] { return result.has_value(); }));
    return result.value_or(QVariant());
  }
  QString Text() const { return Evaluate("document.body.innerText").toString(); }

  // The middle of the first element of the page that this CSS selector finds.
  QPoint PlaceOf(const QString& selector) const {
    const QVariantList middle =
        Evaluate(QString("(r => [r.x + r.width / 2, r.y + r.height / 2])("
                         "document.querySelector('%1').getBoundingClientRect())")
                     .arg(selector))
            .toList();
    return {middle.value(0).toInt(), middle.value(1).toInt()};
  }
  void Click(const QString& selector, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&Surface(), button, {}, PlaceOf(selector));
  }
  void ClickForPage(const QString& selector) {
    WaitForPage([&] { Click(selector); });
  }

  std::string HostText(const char* key) const {
    return frame_.GetSkin().GetText(kSectionTexts, key);
  }
  bool HostWasTold(const std::string& text) const {
    return std::ranges::find(frame_.messages, text) != frame_.messages.end();
  }
  bool WasRequested(const std::string& path) const {
    return ComesTrue([&] { return server_.Requests(path) > 0; });
  }

  FeedServer server_;
  TempFolder folder_;
  FakeFrame frame_;
  CRSS_RightBottomContainer pane_{frame_, nullptr};
  CRSS_RightBottomToolBarWnd& toolbar_ = *pane_.findChild<CRSS_RightBottomToolBarWnd*>();
};

}  // namespace feedloom
