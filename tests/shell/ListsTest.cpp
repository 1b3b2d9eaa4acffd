// Lists of subscriptions that the frame takes from files, addresses and the handset, and writes.

#include <fstream>

#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "ui/Commands.h"

namespace feedloom {

struct Lists : ModuleFixture {
  // A command of the menu above the tree.
  void Choose(int command) {
    QWidget& left = *Columns().widget(0);
    left.findChild<QAbstractButton*>()->click();
    for (auto* const action : left.findChild<QMenu*>()->findChildren<QAction*>())
      if (action->data().toInt() == command) action->trigger();
    delete left.findChild<QMenu*>();
    QCoreApplication::processEvents();  // the command comes when the menu has closed
  }

  TempFolder files_;
};

TEST_F(Lists, ListsGoToFilesAndComeFromFilesAndAddresses) {
  server_.Serve("/one", NumberedRss("Feed's own title", "http://one.example/", 2));
  server_.Serve("/mine.opml", OpmlDocument(FeedOutline("two", server_.Url("/two"))));
  CreateFrame();
  const std::string one = FeedOutline("one", server_.Url("/one"));
  Answer(files_.Write("list", OpmlDocument("<outline text='New'>" + one +
                                           FeedOutline("no", "file:///") + "</outline>")));
  answers_.Next([](QDialog& box) {
    EXPECT_EQ(box.accessibleDescription(), "제외한 항목 1개:\r\nno: 웹 주소가 아님");
  });
  Choose(kCommandImportFile);
  ASSERT_TRUE(WaitForRun());
  EXPECT_EQ(std::ranges::count(texts_, "채널 목록을 가져왔습니다: 추가 1, 이미 있음 0, 제외 1"), 1);
  Answer(server_.Url("/mine.opml"));
  Choose(kCommandImportAddress);
  ASSERT_TRUE(WaitForRun());
  EXPECT_EQ(Labels(), (QStringList{"기본 그룹", "  Feedloom 시작하기", "New(2)", "  one(2)", "mine",
                                   "  two", "보관함", "  내 보관함"}));
  Answer(files_.File("out"));
  Choose(kCommandExportOpml);
  EXPECT_EQ(texts_.back(), "채널 3개를 OPML 파일로 저장했습니다.");
  EXPECT_NE(files_.Read("out.xml").find("text=\"one\" title=\"one\""), std::string::npos);
  EXPECT_EQ(The<Subscribing>().ExportOpml("/no/such/folder/list"), std::nullopt);
  EXPECT_TRUE(texts_.back().starts_with("OPML 파일을 저장하지 못했습니다: ")) << texts_.back();
}

TEST_F(Lists, AListThatIsThereIsAskedAboutWhereTheHostWishesAndDoubledWhereItDoesNot) {
  const ListSource list{files_.Write("list", OpmlDocument(NumberedFolder("N", 2)))};
  CreateFrame();
  const auto import = [&](const char* status) {
    The<Subscribing>().ImportOpml(list);
    EXPECT_TRUE(WaitUntil([&] { return std::ranges::count(texts_, status) > 0; })) << status;
    texts_.clear();
  };
  const char* const added = "채널 목록을 가져왔습니다: 추가 2, 이미 있음 0, 제외 0";
  import(added);
  import(added);
  EXPECT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueLenient, kLenientOn));
  Sql("delete from TB_CHANNEL where channel_title = 'c2'");
  answers_.Next([](QDialog& question) { question.reject(); });
  import("채널 목록을 가져오지 않았습니다.");
  Answer();  // nothing that was chosen: what is missing
  import("채널 목록을 가져왔습니다: 추가 1, 이미 있음 1, 제외 0");
  answers_.Next([](QDialog& question) { question.findChildren<QAbstractButton*>()[1]->click(); });
  import(added);
  EXPECT_EQ(Sql("select group_concat(folder_name || (select count(*) from TB_CHANNEL where "
                "channel_folderID = folder_id)) from TB_FOLDER where folder_id > 1"),
            "N2,N-11,N-22");
  answers_.Next([this](QDialog&) { Destroy(); });
  The<Subscribing>().ImportOpml(list);
  EXPECT_TRUE(WaitUntil([&] { return frame_ == nullptr; })) << "while it is asked";
}

TEST_F(Lists, WhatTheHandsetHasSentOnceDoesNotComeBackAndItsListIsWrittenLast) {
  const std::string work = profile_.Paths().dir + "/work/";
  const auto read = [&](const std::string& name) {
    std::ifstream file(work + name);
    return std::string(std::istreambuf_iterator(file), {});
  };
  const auto leave = [&](const std::string& outlines) {
    std::ofstream(work + "Skyfold_ppc.opml") << OpmlDocument(outlines);
  };
  const auto synchronise = [&] {
    std::optional<SyncEnd> end;
    The<Subscribing>().Synchronise([&](const SyncEnd& told) { end = told; });
    EXPECT_TRUE(WaitUntil([&] { return end.has_value(); }));
    return fmt::format("{} {}", end->sent.value_or(-1), end->received ? end->received->added : -1);
  };
  CreateFrame();
  EXPECT_EQ(synchronise(), "1 0");
  leave(NumberedFolder("H", 2));
  EXPECT_EQ(synchronise(), "3 2");
  EXPECT_NE(read("Skyfold_pc.opml").find("http://H.example/2"), std::string::npos);
  EXPECT_TRUE(WaitForRun()) << "a channel that is refreshed cannot be deleted";
  Select("c1");
  Answer();
  Press("Delete");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(synchronise(), "2 0") << "deleted here, still there";
  leave("<outline");
  EXPECT_EQ(synchronise(), "2 -1");
  leave(NumberedFolder("H", 3));
  EXPECT_EQ(synchronise(), "3 1");
  leave("");
  EXPECT_EQ(synchronise(), "3 0");
  leave(NumberedFolder("H", 1));
  EXPECT_EQ(synchronise(), "4 1") << "it was gone there, and is new again";
  leave(FeedOutline("q\"", "http://q/"));
  EXPECT_EQ(synchronise(), "-1 1");
  EXPECT_EQ(std::ranges::count(texts_,
                               "OPML 파일을 저장했지만 다시 읽을 수 없습니다. 바꾸어야 할 이름 "
                               "1개: q\""),
            1);
}

}  // namespace feedloom
