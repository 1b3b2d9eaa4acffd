// What the user drops on the window from elsewhere.
#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"

namespace feedloom {

struct Drops : ModuleFixture {
  void Drop(QWidget& target, const QList<QUrl>& urls, Qt::DropAction action = Qt::CopyAction) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, action, &data, Qt::LeftButton, {});
    QDropEvent drop({5, 5}, action, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &enter);
    if (enter.isAccepted()) QApplication::sendEvent(&target, &drop);
    EXPECT_NE(drop.dropAction(), enter.isAccepted() ? Qt::MoveAction : Qt::IgnoreAction);
    QCoreApplication::processEvents();
  }
};

TEST_F(Drops, AListIsImportedAndAnAddressBecomesAChannelWhereverTheyAreDropped) {
  CreateFrame();
  const TempFolder files;
  const std::string list = files.Write("list", OpmlDocument(NumberedFolder("Dropped", 1)));
  auto& page = *frame_->findChild<QWebEngineView*>();
  const QUrl shown = page.url();
  Drop(page, {QUrl::fromLocalFile(QString::fromStdString(list))});
  EXPECT_TRUE(WaitUntil([&] { return Labels().join(' ').contains("Dropped"); }));
  std::string preset;
  answers_.Next([&](QDialog& dialog) {
    for (const auto* const edit : dialog.findChildren<QLineEdit*>())
      preset += edit->text().toStdString();
  });
  Drop(*List().viewport(), {QUrl("http://feed.example/a")}, Qt::LinkAction);
  EXPECT_NE(preset.find("http://feed.example/a"), std::string::npos) << preset;
  const auto told = texts_.size();
  Drop(Tree(), {QUrl("javascript:alert(1)")}, Qt::MoveAction);
  EXPECT_EQ(texts_.size(), told) << "who gives would delete it";
  Drop(page, {QUrl("javascript:alert(1)")});
  EXPECT_EQ(texts_.back(), "여기에는 OPML 파일이나 피드의 주소(http, https)를 놓으십시오.");
  EXPECT_EQ(page.url(), shown);
}

TEST_F(Drops, WhatTheHostHandsOverIsAddedAfterAQuestion) {
  CreateFrame();
  const TempFolder files;
  const std::string list = files.Write("list $%d", OpmlDocument(NumberedFolder("Handed", 3)));
  const auto open = [this](const std::string& content) {
    WindowMessage message(kMessageOpenContent, 0, reinterpret_cast<std::intptr_t>(&content));
    QCoreApplication::sendEvent(frame_, &message);
    return message.result == 1;
  };
  for (const char* content : {"javascript:alert(1)", "/nowhere", "/", "", "list"})
    EXPECT_FALSE(open(content)) << content;
  Send(kMessageOpenContent);
  QString shown;
  const auto answer = [&](QDialog& dialog) {
    shown = dialog.accessibleDescription();
    QTest::keyClick(&dialog, Qt::Key_Return);
  };
  answers_.Next(answer);
  EXPECT_TRUE(open(list));
  EXPECT_TRUE(WaitUntil([&] { return texts_.back() == "채널 목록을 가져오지 않았습니다."; }));
  EXPECT_EQ(shown, "이 구독 목록을 가져오시겠습니까?\r\nlist $%d\r\n목록의 채널 3개");
  Answer();
  EXPECT_TRUE(open(list));
  EXPECT_TRUE(WaitUntil([&] { return Labels().join(' ').contains("Handed"); }));
  const std::string feed =
      files.Write("feed",
                  "<rss version='2.0'><channel><atom:link rel='self' href='http://a.example/%41'/>"
                  "</channel></rss>");
  for (const auto& row : {std::pair(std::string("feed://a.example/"), "feed://a.example/"),
                          {feed, "http://a.example/%41"}}) {
    answers_.Next([&](QDialog& dialog) { shown = dialog.findChild<QLineEdit*>()->text(); });
    EXPECT_TRUE(open(row.first));
    EXPECT_TRUE(WaitUntil([&] { return shown == row.second; })) << shown.toStdString();
  }
}

}  // namespace feedloom
