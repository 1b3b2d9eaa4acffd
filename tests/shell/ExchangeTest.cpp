// Subscriptions out of the frame and into it, with the file dialogs and message boxes that a user
// meets.
#include <unistd.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "exchange/ListDocuments.h"
#include "kit/FeedDocuments.h"
#include "platform/Messages.h"
#include "shell/ModuleFixture.h"
#include "skin/Keys.h"
#include "ui/Commands.h"
#include "vxctrl/DialogAnswers.h"

namespace feedloom {
namespace {

class FrameExchange : public ModuleFixture {
 protected:
  // A command of the whole menu.
  void Choose(int command) {
    for (auto* const button : frame_->findChildren<QAbstractButton*>()) {
      if (button->accessibleName() == "전체 메뉴") QTest::mouseClick(button, Qt::LeftButton);
    }
    const auto actions = QApplication::activePopupWidget()->findChildren<QAction*>();
    const auto action = std::ranges::find_if(
        actions, [&](const QAction* candidate) { return candidate->data().toInt() == command; });
    ASSERT_NE(action, actions.end());
    (*action)->trigger();
    QApplication::activePopupWidget()->close();
    QCoreApplication::processEvents();
  }

  // The next file dialog is answered with this path.
  void AnswerWithFile(const std::string& path) {
    answers_.Next([path](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(path));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  }
  void ExpectMessage(const QString& begin) {
    answers_.Next([begin](QDialog& box) {
      QString said;
      for (auto* const label : box.findChildren<QLabel*>()) said += label->text();
      EXPECT_TRUE(said.startsWith(begin)) << said.toStdString();
      QTest::keyClick(&box, Qt::Key_Return);
    });
  }

  void ImportFile(const std::string& document) {
    AnswerWithFile(files_.Write("list.opml", document));
    Choose(kCommandImportFile);
  }

  bool HostWasTold(const std::string& text) {
    return WaitUntil([&] { return std::ranges::find(host_->texts, text) != host_->texts.end(); });
  }
  std::string FolderOf(const std::string& channel) {
    return "<outline text='Imported'>" + FeedOutline(channel, server_.Url("/" + channel)) +
           FeedOutline("no web", "file:///etc/passwd") + "</outline>";
  }

  TempFolder files_;
  DialogAnswers answers_;
};

TEST_F(FrameExchange, AnExportHasTheTreesFoldersAndChannelsWithoutTheirCounts) {
  AddPosts(1, 3);
  Sql("update TB_CHANNEL set channel_title = 'A & B(2)', channel_xmllink = 'http://a/?b&c'");
  CreateFrame();
  ASSERT_EQ(TreeLabels()[1], "  A & B(2)(3)");
  AnswerWithFile(files_.File("mine"));
  Choose(kCommandExportOpml);
  ASSERT_TRUE(HostWasTold("채널 1개를 OPML 파일로 저장했습니다."));
  const std::string text = files_.Read("mine.xml");
  EXPECT_NE(text.find(Korean("<body><outline text=\"기본 그룹\"><outline type=\"rss\" "
                             "text=\"A &amp; B(2)\" title=\"A &amp; B(2)\" "
                             "xmlUrl=\"http://a/?b&amp;c\"/></outline></body></opml>")),
            std::string::npos)
      << text;
}

TEST_F(FrameExchange, AnExportThatCannotBeWrittenTellsTheReason) {
  CreateFrame();
  const std::string path = files_.File("mine.xml");
  const std::string inTheWay = files_.File(".feedloom-" + std::to_string(getpid()) + ".new");
  std::filesystem::create_directory(inTheWay);
  AnswerWithFile(path);
  Choose(kCommandExportOpml);
  EXPECT_TRUE(HostWasTold("OPML 파일을 저장하지 못했습니다: Cannot create the file '" + inTheWay +
                          "': File exists."));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(FrameExchange, AnImportedListGrowsTheTreeKeepsItsSelectionAndIsRefreshed) {
  server_.Serve("/one", NumberedRss("Feed's own title", "http://one.example/", 2));
  CreateFrame();
  Select("Feedloom 시작하기");
  Tree().collapse(Tree().model()->index(1, 0));  // the cabinets
  ImportFile(OpmlDocument(FolderOf("one")));
  ASSERT_TRUE(HostWasTold("채널 목록을 가져왔습니다: 추가 1, 이미 있음 0, 제외 1"));
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_EQ(TreeLabels(), (QStringList{"기본 그룹", "  Feedloom 시작하기", "Imported(2)",
                                       "  one(2)", "보관함", "  내 보관함"}));
  EXPECT_EQ(Tree().currentIndex().data(), "Feedloom 시작하기");
  EXPECT_FALSE(Tree().isExpanded(Tree().model()->index(2, 0)));
  host_->texts.clear();
  ImportFile(OpmlDocument(FolderOf("one")));
  ASSERT_TRUE(HostWasTold("채널 목록을 가져왔습니다: 추가 1, 이미 있음 0, 제외 1"));
  EXPECT_EQ(TreeLabels()[4], "Imported-1");
}

TEST_F(FrameExchange, AListAtAnAddressIsDownloadedFirst) {
  server_.Serve("/lists/mine.opml", OpmlDocument(FeedOutline("one", server_.Url("/one"))));
  CreateFrame();
  answers_.Next([this](QDialog& dialog) {
    QTest::keyClicks(dialog.findChild<QLineEdit*>(),
                     QString::fromStdString(server_.Url("/lists/mine.opml")));
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Choose(kCommandImportAddress);
  ASSERT_TRUE(HostWasTold("채널 목록을 가져왔습니다: 추가 1, 이미 있음 0, 제외 0"));
  EXPECT_EQ(TreeLabels()[2], "mine");
  ASSERT_TRUE(WaitForRunEnd());  // of a channel that is not there
  EXPECT_EQ(Value("select channel_state from TB_CHANNEL where channel_title = 'one'"), "-2");
}

TEST_F(FrameExchange, WhatCannotBeReadAddsNothingAndSaysSo) {
  CreateFrame();
  const QStringList before = TreeLabels();
  AnswerWithFile(files_.Write("list.opml", OpmlDocument("<outline text='A'>")));
  ExpectMessage("OPML 파일을 읽지 못했습니다.");
  Choose(kCommandImportFile);
  EXPECT_TRUE(WaitUntil([&] { return answers_.AreUsedUp(); }));
  EXPECT_EQ(host_->texts.back(),
            "채널 목록을 가져오지 못했습니다: it cannot be read, or is not well-formed XML");
  EXPECT_EQ(TreeLabels(), before);
  EXPECT_EQ(Value("select count(*) from TB_FOLDER"), "1");
}

TEST_F(FrameExchange, ACancelledFileDialogDoesNothing) {
  CreateFrame();
  host_->texts.clear();
  for (const int command : {kCommandImportFile, kCommandExportOpml, kCommandImportAddress}) {
    answers_.Next([](QDialog& dialog) { dialog.reject(); });
    Choose(command);
  }
  EXPECT_EQ(host_->texts, std::vector<std::string>());
}

TEST_F(FrameExchange, TheHandsetGetsTheListAndItsOwnIsMerged) {
  ASSERT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueModelName, "CX-77"));
  const std::filesystem::path work = profile_.Paths().workDir;
  std::ofstream(work / "Skyfold_ppc.opml") << OpmlDocument(
      "<outline text='기본 그룹'>" + FeedOutline("one", server_.Url("/one")) + "</outline>");
  CreateFrame();
  answers_.Next([this](QDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(HostWasTold("핸드셋과 동기화했습니다: 보낸 채널 1, 받은 채널 1"));
  });
  Choose(kCommandSynchronise);
  ASSERT_TRUE(answers_.AreUsedUp());
  EXPECT_EQ(TreeLabels()[2], "  one");
  std::ifstream sent(work / "Skyfold_pc.opml");
  const std::string text(std::istreambuf_iterator<char>(sent), {});
  EXPECT_NE(text.find(Korean("<outline text=\"기본 그룹\">")), std::string::npos);
  EXPECT_EQ(text.find("\"one\""), std::string::npos);
}

TEST_F(FrameExchange, AnEndInTheMiddleOfAnImportIsSoonOverAndKeepsWhatWasAdded) {
  CreateFrame();
  std::string list;
  for (int i = 0; i < 200; ++i) list += NumberedFolder("F" + std::to_string(i), 5);
  ImportFile(OpmlDocument(list));
  ASSERT_TRUE(WaitUntil([this] { return TreeLabels().contains("F1"); }));
  const auto start = std::chrono::steady_clock::now();
  Destroy();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  const int folders = std::stoi(Value("select count(*) from TB_FOLDER"));
  EXPECT_GT(folders, 2);
  EXPECT_LT(folders, 201);
  EXPECT_EQ(Value("pragma integrity_check"), "ok");
}

}  // namespace
}  // namespace feedloom
