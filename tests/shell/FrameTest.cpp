// The module's life in its host, and its frame: start, messages and keys.
#include <QSplitter>
#include <random>

#include "exchange/ListDocuments.h"
#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "ui/tree/GroupTreeModel.h"
#include "vxctrl/AccessibleTree.h"

namespace feedloom {
namespace {

class Module : public ModuleFixture {
 protected:
  // The sample channel's row.
  QVariant Sample(int role) {
    return Tree().model()->index(0, 0, Tree().model()->index(0, 0)).data(role);
  }
  bool IsNew() { return Sample(GroupTreeModel::IsNewRole).toBool(); }

  // The name of what has the keyboard.
  QString Place() {
    QWidget* const focus = QApplication::focusWidget();
    if (frame_->findChild<QWebEngineView*>()->isAncestorOf(focus)) return "page";
    return SpokenName(*QAccessible::queryAccessibleInterface(focus));
  }

  const std::filesystem::path database_ = profile_.Paths().database;
  const std::filesystem::path copy_ = profile_.Paths().database + ".bak";
};

TEST_F(Module, ExportsItsTwoFunctionsAndNothingElse) {
  const TempFolder folder;
  const std::string list = "nm -D --defined-only --format=just-symbols " FEEDLOOM_MODULE " >";
  EXPECT_EQ(std::system((list + folder.File("names")).c_str()), 0);
  EXPECT_EQ(folder.Read("names"), "Create\nDestroyBtn\n");
}

TEST_F(Module, MakesOneFrameAtATimeNoneWithoutAWindowAndCanBeLoadedAgain) {
  EXPECT_EQ(create_(nullptr, nullptr, nullptr), nullptr);
  CreateFrame();
  EXPECT_EQ(create_(nullptr, nullptr, pane_), nullptr);
  const QPointer<QWidget> first = frame_;
  Destroy();
  EXPECT_TRUE(first.isNull());
  EXPECT_EQ(dlclose(module_), 0);
  Load();
  CreateFrame();
  EXPECT_EQ(Labels(), (QStringList{"기본 그룹", "  Feedloom 시작하기", "보관함", "  내 보관함"}));
  EXPECT_TRUE(PageText().contains("Feedloom")) << PageText().toStdString();
}

TEST_F(Module, WithoutADatabaseSaysSoStandsAndKeepsTheOlderCopy) {
  rename(database_, copy_);
  create_directory(database_);
  CreateFrame();
  EXPECT_EQ(std::ranges::count(texts_, "Can't open database"), 5);
  EXPECT_EQ(Labels(), QStringList{"보관함"});
  EXPECT_EQ(UnreadTotal(), -1);
  Destroy();
  EXPECT_TRUE(is_regular_file(copy_));
}

TEST_F(Module, EndsAtAnyMomentOfARefreshKeepsWhatWasStoredAndTellsAHostThatIsThere) {
  for (int i = 0; i < 8; ++i) {
    const std::string path = fmt::format("/{}.xml", i);
    server_.Serve(path, NumberedRss("Feed", "http://example.com" + path + "/", 30));
    AddChannel(fmt::format("Channel {}", i), path);
  }
  server_.Hang("/hang.xml");
  const std::string hanging = std::to_string(AddChannel("Never answers", "/hang.xml"));
  std::mt19937 random(20081121);
  for (int round = 0; round < 8; ++round) {
    SCOPED_TRACE(round);
    Sql("delete from TB_POST");
    CreateFrame();
    numbers_.clear();
    Send(kMessageRefreshAll);
    const auto told = texts_.size() + random() % 9;
    ASSERT_TRUE(WaitUntil([&] { return numbers_.size() == 1 && texts_.size() >= told; }));
    const int stored = std::stoi(Sql("select count(*) from TB_POST"));
    if (round % 2 == 1) host_.reset();
    Destroy();
    EXPECT_EQ(numbers_.size(), host_ ? 2 : 1);
    EXPECT_EQ(numbers_.back(), host_ ? kMessageRefreshEnded : kMessageRefreshBegan);
    EXPECT_GE(std::stoi(Sql("select count(*) from TB_POST")), stored);
    EXPECT_EQ(Sql("pragma integrity_check"), "ok");
    // It has not failed yet: nobody has waited for its time limit.
    EXPECT_EQ(Sql("select channel_state from TB_CHANNEL where channel_id = " + hanging), "0");
    EXPECT_EQ(file_size(copy_), file_size(database_));
  }
}

TEST_F(Module, EndsInTheMiddleOfAnImportWhileADialogIsOpen) {
  const TempFolder files;
  std::string list;
  for (int i = 0; i < 200; ++i) list += NumberedFolder("F" + std::to_string(i), 5);
  CreateFrame();
  answers_.Next([&](QDialog&) {
    TheFrame().ImportOpml({.place = files.Write("list.opml", OpmlDocument(list))});
    EXPECT_TRUE(WaitUntil([this] { return Labels().contains("F1"); }));
    Destroy();
  });
  Send(kMessageOpenPanel);
  const int folders = std::stoi(Sql("select count(*) from TB_FOLDER"));
  EXPECT_TRUE(folders > 2 && folders < 201) << folders;
}

TEST_F(Module, CountsUnreadPostsAndThenDeletesOldOnesWhenTheSettingsSaySo) {
  AddPosts(1, 3);
  Sql("update TB_POST set post_createDate = datetime('now', '-8 days') where post_id < 3");
  using Row = std::array<const char*, 3>;  // mode, days, and the count on screen
  for (const auto& [mode, days, count] :
       {Row{"1", "7", "(3)"}, {"0", "0", "(3)"}, {"0", "9", "(3)"}, {"0", "7", "(1)"}}) {
    Set("FeedDeleteModeStr", mode);
    Set("FeedDeleteDateStr", days);
    CreateFrame();
    EXPECT_EQ(Labels()[1], QString("  Feedloom 시작하기") + count);
    EXPECT_EQ(UnreadTotal(), 3);
    EXPECT_EQ(TheFrame().State().announcedTotal, 3);
    Destroy();
  }
}

TEST_F(Module, CountsWhatMessagesTellThatARefreshHasBrought) {
  CreateFrame();
  const auto refresh = [this](int result) {
    Send(kMessageChannelWorker, 1, 0);
    EXPECT_FALSE(IsNew());
    Send(kMessageChannelResult, result, 1);
    EXPECT_EQ(Sample(GroupTreeModel::StateRole), result);
    const auto told = texts_.size();
    EXPECT_EQ(Send(kMessageShowTextAgain, 7, 8), 0);
    EXPECT_EQ(texts_, (texts_.resize(told), texts_.push_back(texts_.back()), texts_));
    EXPECT_NE(texts_.back().find("Feedloom 시작하기"), std::string::npos);
  };
  for (const int result : {kDownloadFailed, kDocumentRefused, kChannelRefreshed}) refresh(result);
  EXPECT_FALSE(IsNew());
  AddPosts(1, 3);
  refresh(kChannelRefreshed);
  EXPECT_TRUE(IsNew());
  const int id = AddChannel("Fresh", "/fresh.xml");
  AddPosts(id, 2);
  Send(kMessageChannelInserted, id, 1);
  EXPECT_EQ(Labels()[2], "  Fresh");
  Send(kMessageChannelResult, kChannelRefreshed, id);
  const QStringList labels = Labels();
  EXPECT_EQ(labels.mid(0, 3),
            (QStringList{"기본 그룹(5)", "  Feedloom 시작하기(3)", "  Fresh(2)"}));
  EXPECT_EQ(UnreadTotal(), 5);
  const auto told = texts_.size();
  for (const unsigned number : {0x500, 0x506, 0x508, 0x7777}) Send(number, 4711, 4712);
  EXPECT_EQ(Labels(), labels);
  EXPECT_EQ(texts_.size(), told);
}

TEST_F(Module, CountsEachPostOnceAlsoOfAWorkerThatWasStopped) {
  CreateFrame();
  Send(kMessageChannelWorker, 1, 0);
  AddPosts(1, 2);
  TheFrame().RecountUnread(false);
  EXPECT_EQ(UnreadTotal(), 2);
  AddPosts(1, 1);
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(UnreadTotal(), 3);
  AddPosts(1, 1);
  TheFrame().RecountUnread(false);  // no worker has the channel now
  EXPECT_EQ(UnreadTotal(), 3);
  AddPosts(1, 1);
  Send(kMessageChannelWorker, 1, 0);
  Send(kMessageChannelResult, kRunEnded);
  Send(kMessageChannelWorker, 1, 0);  // of the next run
  EXPECT_EQ(Labels()[1], "  Feedloom 시작하기(4)");
  Send(kMessageChannelWorker, 1, 0);  // stopped
  EXPECT_EQ(Labels()[1], "  Feedloom 시작하기(5)");
  EXPECT_EQ(UnreadTotal(), 4);
}

TEST_F(Module, RefreshesFromTheServerToTheScreen) {
  server_.Hang("/news.xml");
  AddChannel("News", "/news.xml");
  CreateFrame();
  Select("News");
  EXPECT_EQ(Send(kMessageRefreshAll), 0);
  ASSERT_TRUE(WaitUntil([this] { return frame_->cursor().shape() == Qt::WaitCursor; }));
  server_.Serve("/news.xml", NumberedRss("News", "http://example.com/", 3));
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_NE(frame_->cursor().shape(), Qt::WaitCursor);
  EXPECT_EQ(Titles(), (QStringList{"Post 1", "Post 2", "Post 3"}));
  EXPECT_TRUE(IsNew());
  Select("News(3)");
  EXPECT_TRUE(PageText().contains("Text 1"));
  EXPECT_EQ(numbers_, (Numbers{kMessageRefreshBegan, kMessageRefreshEnded}));
}

TEST_F(Module, KeysLeadRoundItsPanesAndDividersAndEverythingSaysWhatItIs) {
  AddPosts(1, 3);
  CreateFrame();
  EXPECT_EQ(Unlabelled(*frame_), QStringList());
  auto& columns = *qobject_cast<QSplitter*>(frame_);
  auto& rows = *qobject_cast<QSplitter*>(columns.widget(1));
  EXPECT_EQ(columns.sizes()[0], 251);
  EXPECT_EQ(rows.sizes()[0], 200);
  Select("Feedloom 시작하기(3)");
  const QString steps =
      "F6=글 목록;F6=page;F6=채널과 보관함;Shift+F6=page;Shift+F6=글 목록;F8=채널 영역의 너비;"
      "End, F8=글 목록의 높이;F8, Escape=글 목록;F8, F6=채널과 보관함;F8, Shift+F6=page";
  for (const QString& step : steps.split(';')) {
    Press(step.section('=', 0, 0));
    EXPECT_EQ(Place(), step.section('=', 1));
  }
  EXPECT_EQ(columns.sizes()[1], 330);
  Press("F8, Home, F8, End");
  EXPECT_EQ(columns.sizes()[0], 251);
  EXPECT_EQ(rows.sizes()[1], 150);
  Press("Home");
  EXPECT_EQ(rows.sizes()[0], 130);
  Named<QAbstractButton>(*frame_, "전체 메뉴").setFocus(Qt::TabFocusReason);
  QStringList way;
  for (; way.size() < 30 && Place() != "page"; Press("Tab")) way << Place();
  EXPECT_EQ(way.join(", ").toStdString(),
            "전체 메뉴, 모든 채널 새로 고침, 채널 추가, 채널 디렉터리, 채널과 보관함, 검색 범위, "
            "검색어, 검색, 글 목록, 페이지 새로 고침, 주소, 이동");
  const auto leavePage = [this] { return Place() != "page" || (Press("Tab"), false); };
  EXPECT_TRUE(WaitUntil(leavePage)) << "the page must not keep the keyboard";
  Tree().setFocus();
  for (const char* const pane : {"tree", "list", "page"}) {
    // The engine hears keys only when its page knows that it has the keyboard.
    const auto menu = [] { return QApplication::activePopupWidget(); };
    EXPECT_TRUE(WaitUntil([&] { return menu() || (Press("Shift+F10"), false); })) << pane;
    if (menu()) menu()->close();
    Press("F6");
  }
}

}  // namespace
}  // namespace feedloom
