// The module's life in its host, and its frame: start, messages and keys.
#include <fstream>
#include <random>
#include <set>

#include "controls/AccessibleTree.h"
#include "fetch/FeedMemory.h"
#include "fetch/OwnPeriods.h"
#include "files/RegistryKeys.h"
#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "shell/ModuleThreads.h"

namespace feedloom {

// Counts how often the module tries again to read the store.
struct TryCounter : QObject {
  TryCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    const auto* const timer = qobject_cast<QTimer*>(object);
    count += event->type() == QEvent::Timer && timer && timer->interval() == 500 ? 1 : 0;
    return false;
  }
  int count = 0;
};

struct Module : ModuleFixture {
  // Three unread posts, two of them older than a week.
  void AddOldPosts() {
    AddPosts(1, 3);
    Sql("update TB_POST set post_createDate = datetime('now', '-8 days') where post_id < 3");
  }
  void SetCleanUp(const std::string& mode, const std::string& days) {
    ASSERT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, "FeedDeleteModeStr", mode));
    ASSERT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, "FeedDeleteDateStr", days));
  }
  // The name of what has the keyboard.
  QString Place() {
    QWidget* const focus = QApplication::focusWidget();
    if (frame_->findChild<QWebEngineView*>()->isAncestorOf(focus)) return "page";
    return SpokenName(*QAccessible::queryAccessibleInterface(focus));
  }

  const std::filesystem::path database_ = profile_.Paths().database;
  const std::filesystem::path copy_ = profile_.Paths().database + ".bak";
};

TEST_F(Module, MakesOneFrameAtATimeAndNoneWithoutAWindow) {
  EXPECT_EQ(create_(nullptr, nullptr, nullptr), nullptr);
  CreateFrame();
  EXPECT_EQ(create_(nullptr, nullptr, pane_), nullptr);
  Destroy();
  EXPECT_TRUE(host_->findChildren<QSplitter*>().empty());
  CreateFrame();
  EXPECT_EQ(Labels(), (QStringList{"기본 그룹", "  Feedloom 시작하기", "보관함", "  내 보관함"}));
}

TEST_F(Module, WithoutADatabaseSaysSoOnceKeepsTheOlderCopyAndStandsUntilItCanBeRead) {
  const TempFolder files;
  const std::string list = files.Write("list", OpmlDocument(NumberedFolder("A", 1)));
  AddPosts(1, 3);
  rename(database_, copy_);
  create_directory(database_);
  CreateFrame();
  const TryCounter tries;
  ASSERT_TRUE(WaitUntil([&] { return tries.count == 2; }));
  EXPECT_EQ(std::ranges::count(texts_, "Can't open database"), 1);
  EXPECT_EQ(texts_.back(), "Can't open database") << "though the main page is loaded";
  EXPECT_EQ(Labels(), QStringList{"보관함"});
  EXPECT_EQ(UnreadTotal(), -1);
  EXPECT_FALSE(The<Subscribing>().CanExchange());
  EXPECT_EQ(The<Subscribing>().ExportOpml(list + "2"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(list + "2"));
  EXPECT_EQ(texts_.back(), "OPML 파일을 저장하지 못했습니다: Can't open database");
  The<Subscribing>().ImportOpml({.place = list});
  EXPECT_EQ(texts_.back(), "채널 목록을 가져오지 못했습니다: Can't open database");
  Send(kMessageRefreshAll);
  EXPECT_TRUE(numbers_.empty());
  Destroy();
  EXPECT_TRUE(is_regular_file(copy_));
  CreateFrame();
  remove(database_);
  rename(copy_, database_);
  ASSERT_TRUE(WaitUntil([this] { return Labels().contains("  Feedloom 시작하기(3)"); }));
  EXPECT_EQ(UnreadTotal(), 3);
  EXPECT_EQ(texts_.back(), "");
  EXPECT_EQ(The<Subscribing>().ExportOpml(list + "2"), 1);
  rename(database_, copy_);
  create_directory(database_);
  QSignalSpy shown(frame_, SIGNAL(PageShown()));
  Select("기본 그룹(3)");  // the main page is shown beside an empty list
  ASSERT_TRUE(shown.wait(20'000));
  EXPECT_EQ(texts_.back(), "Can't open database");
  The<Reading>().ShowMainPage();
  EXPECT_TRUE(WaitUntil([this] { return texts_.back() != "Can't open database"; }));
}

TEST_F(Module, OfAHostWhoseFunctionThrowsDeletesNoPostLeavesNoPaneAndIsMadeWhenItDoesNot) {
  AddOldPosts();
  SetCleanUp("0", "7");
  QWidget window;
  std::string fatal;
  std::set<std::string> owners;  // what the frame still was when its first pane went
  const auto fail = [&]() -> std::string {
    auto* const frame = window.findChild<QSplitter*>();
    const auto note = [&owners, frame] { owners.insert(frame->metaObject()->className()); };
    connect(frame->widget(0), &QObject::destroyed, this, note);
    throw std::runtime_error(fatal);
  };
  for (auto* const function : {&lookup_.HostGetText, &lookup_.HostGetSkinValue}) {
    *function = [&fatal, fail, get = *function](const char* section, const char* key) {
      return key == fatal ? fail() : get(section, key);
    };
  }
  for (const char* const key :
       {kTextTreeName, kTextListName, kTextFindNext, kTextRowDivider, kImageMainPage}) {
    SCOPED_TRACE(fatal = key);
    EXPECT_EQ(Create(&window), nullptr);
    EXPECT_TRUE(window.children().empty());
    EXPECT_EQ(Sql("select count(*) from TB_POST"), "3");
  }
  EXPECT_EQ(owners, std::set<std::string>{"feedloom::CRSS_MainFrame"});
  fatal = "";
  CreateFrame();
  EXPECT_EQ(Labels()[1], "  Feedloom 시작하기(1)");
  Destroy();
}

TEST_F(Module, EndsAtAnyMomentOfARefreshKeepsWhatWasStoredAndTellsAHostThatIsThere) {
  server_.Serve("/feed", NumberedRss("Feed", "http://example.com/", 30));
  server_.Hang("/feed?9");
  Sql("insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) "
      "select 'c' || value, '" +
      server_.Url("/feed?") + "' || value, 1, value from json_each('[1,2,3,4,5,6,7,8,9]')");
  std::mt19937 random(20081121);
  for (int round = 0; round < 8; ++round) {
    SCOPED_TRACE(round);
    Sql("delete from TB_POST; delete from TB_GONE_LINK");
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
    EXPECT_EQ(Sql("select channel_state from TB_CHANNEL where channel_title = 'c9'"), "0");
    EXPECT_EQ(file_size(copy_), std::stoul(Sql("pragma page_count")) * 4096);
  }
}

TEST_F(Module, TellsBehindARefreshWhatItHasBroughtAlsoWhenTheHostStopsIt) {
  server_.Serve("/1", NumberedRss("Feed", "http://example.com/", 3));
  server_.Hang("/2");
  Sql("delete from TB_CHANNEL");
  Sql("insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) "
      "select value, '" +
      server_.Url("/") + "' || value, 1, value from json_each('[1,2,3]')");
  CreateFrame();
  Send(kMessageRefreshAll);
  const std::string failed = "채널을 새로 고치지 못했습니다: 3";
  EXPECT_TRUE(
      WaitUntil([&] { return Labels().contains("  1(3)") && server_.Requests("/2") == 1; }));
  EXPECT_TRUE(WaitUntil([&] { return std::ranges::count(texts_, failed) == 1; }));
  Send(kMessageStopRefresh);
  EXPECT_TRUE(WaitForRun());
  EXPECT_EQ(texts_.back(), "멈춤: 채널 2/3개, 새 글 3개, 채널 1개 실패");
  server_.Serve("/2", NumberedRss("Feed", "http://example.org/", 1));
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitForRun());
  EXPECT_TRUE(WaitUntil([&] { return texts_.back() == "새 글 1개, 채널 1개 실패"; }));
}

TEST_F(Module, DoesNotSayThatAllWasReceivedWhenPostsCouldNotBeStored) {
  server_.Serve("/1", NumberedRss("Feed", "http://example.com/", 3));
  Sql("update TB_CHANNEL set channel_xmllink = '" + server_.Url("/1") + "'");
  Sql("create trigger t before insert on TB_POST when new.post_link like '%/2' "
      "begin select raise(fail, 'no room'); end");
  CreateFrame();
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitForRun());
  EXPECT_TRUE(WaitUntil([&] { return UnreadTotal() == 2; }));
  EXPECT_EQ(texts_.back(), "no room");
  Sql("drop trigger t");
  Send(kMessageRefreshAll);
  EXPECT_TRUE(WaitForRun());
  EXPECT_TRUE(WaitUntil([&] { return texts_.back() == "새 글 1개"; }));
}

TEST_F(Module, ByItselfAsksOnlyChannelsThatAreDueForAHostThatWantsThat) {
  constexpr int kChannels = 1000;
  ASSERT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValuePeriods, kPeriodsOn));
  Sql("delete from TB_CHANNEL");
  Sql(
      fmt::format("insert into TB_CHANNEL(channel_id, channel_title, channel_xmllink, "
                  "channel_folderID, channel_order) with recursive n(i) as (select 1 union all "
                  "select i + 1 from n where i < {}) select i, i, '{}' || i, 1, i from n",
                  kChannels, server_.Url("/")));
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  FeedVisits visits;
  for (int i = 1; i <= kChannels; ++i) {
    const std::chrono::minutes ago(i % 100 == 0 ? 55 : 50);
    visits[i] = {.address = server_.Url(fmt::format("/{}", i)),
                 .succeeded = now - ago,
                 .period = std::chrono::hours(1)};
  }
  visits[7].fault.kind = FeedFaultKind::TimedOut;
  visits.erase(8);  // never asked
  std::ofstream(FeedMemoryPath(profile_.Paths().workDir)) << FeedVisitsText(visits);
  for (const auto& [channel, own] : {std::pair("/9", 30), {"/100", 120}})
    EXPECT_TRUE(
        StoreOwnPeriod(profile_.TheRegistry(), server_.Url(channel), std::chrono::minutes(own)));
  CreateFrame();
  Send(kMessageRefreshDue);
  EXPECT_TRUE(WaitForRun());
  std::set<int> asked;
  for (int i = 1; i <= kChannels; ++i)
    if (server_.Requests(fmt::format("/{}", i)) > 0) asked.insert(i);
  EXPECT_EQ(asked, (std::set{7, 8, 9, 200, 300, 400, 500, 600, 700, 800, 900, 1000}));
}

TEST_F(Module, EndsInTheMiddleOfAnImportWhileADialogIsOpen) {
  const TempFolder files;
  std::string list;
  for (int i = 0; i < 200; ++i) list += NumberedFolder("F" + std::to_string(i), 5);
  CreateFrame();
  answers_.Next([&](QDialog&) {
    The<Subscribing>().ImportOpml({.place = files.Write("list.opml", OpmlDocument(list))});
    EXPECT_TRUE(WaitUntil([this] { return Labels().contains("F1"); }));
    Destroy();
  });
  Send(kMessageOpenPanel);
  const int folders = std::stoi(Sql("select count(*) from TB_FOLDER"));
  EXPECT_TRUE(folders > 2 && folders < 201) << folders;
}

TEST_F(Module, CountsUnreadPostsAndThenDeletesOldOnesWhenTheSettingsSaySoAlsoWithoutThreads) {
  AddOldPosts();
  using Row = std::array<const char*, 3>;  // mode, days, and the count on screen
  for (const auto& [mode, days, count] :
       {Row{"1", "7", "(3)"}, {"0", "0", "(3)"}, {"0", "9", "(3)"}, {"0", "7", "(1)"}}) {
    SetCleanUp(mode, days);
    CreateFrame();
    EXPECT_EQ(Labels()[1], QString("  Feedloom 시작하기") + count);
    EXPECT_EQ(UnreadTotal(), 3);
    Destroy();
  }
  QWidget window;
  std::optional<ModuleThreadRefusal> refusal(std::in_place);
  frame_ = Create(&window);
  EXPECT_GT(refusal->Refused(), 0);
  refusal.reset();
  EXPECT_EQ(Labels()[1], "  Feedloom 시작하기(1)");
}

TEST_F(Module, EachPartHasItsNameAndItsPlace) {
  CreateFrame();
  std::string parts;
  for (const QAccessibleInterface* node : NodesBelow(*frame_)) {
    const QRect place = node->rect().translated(-frame_->mapToGlobal(QPoint()));
    if (qobject_cast<QWidget*>(node->object()) && IsForTheUser(*node))
      parts += fmt::format("{} {} {} {} {}; ", SpokenName(*node).toStdString(), place.x(),
                           place.y(), place.width(), place.height());
  }
  EXPECT_EQ(
      parts,
      "페이지 도구 모음 255 204 745 40; 뒤로 263 208 32 32; 앞으로 299 208 32 32; "
      "중지 335 208 32 32; 페이지 새로 고침 371 208 32 32; 주소 407 212 513 24; "
      "이동 924 208 32 32; 이 채널 추가 960 208 32 32; 검색 도구 모음 261 0 733 40; "
      "검색 범위 269 8 84 24; 검색어 357 8 172 24; 검색 533 4 32 32; 읽지 않은 글만 보기 962 8 24 "
      "24; "
      "글 목록 261 41 733 153; 글 목록의 높이 255 200 745 4; 채널 도구 모음 0 0 251 40; "
      "전체 메뉴 7 4 32 32; 모든 채널 새로 고침 43 4 32 32; 채널 추가 85 4 32 32; "
      "채널 디렉터리 121 4 32 32; 채널과 보관함 6 41 239 653; 채널 영역의 너비 251 0 4 700; ");
  EXPECT_EQ(frame_->minimumSizeHint(), QSize(585, 284));
  for (const QLineEdit* box : frame_->findChildren<QLineEdit*>())
    EXPECT_EQ(box->font().toString().section(',', 0, 2), "NanumGothic,-1,13");
  Press("F8");
  const QImage divider = QApplication::focusWidget()->grab().toImage();
  EXPECT_EQ(divider.pixelColor(0, 99), frame_->palette().color(QPalette::Link));
  EXPECT_EQ(divider.pixelColor(2, 99), frame_->palette().color(QPalette::Highlight));
}

TEST_F(Module, KeysLeadRoundItsPanesAndDividersAndOutOfThePage) {
  AddPosts(1, 3);
  CreateFrame();
  Select("Feedloom 시작하기(3)");
  const QString steps =
      "F6=글 목록;F6=page;F6=채널과 보관함;Shift+F6=page;Shift+F6=글 목록;F8=채널 영역의 너비;"
      "End, F8=글 목록의 높이;F8, Escape=글 목록;F8, F6=채널과 보관함;F8, Shift+F6=page";
  for (const QString& step : steps.split(';')) {
    Press(step.section('=', 0, 0));
    EXPECT_EQ(Place(), step.section('=', 1));
  }
  EXPECT_TRUE(WaitUntil([this] { return Place() != "page" || (Press("Tab"), false); }));
  Tree().setFocus();
  Press("Shift+F10");
  ASSERT_TRUE(QApplication::activePopupWidget() && QApplication::activePopupWidget()->close());
}

}  // namespace feedloom
