// What the commands of the rows' menus do, and when they are grey, over a real database.

#include "check/FeedCheckAnswer.h"
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {

struct TreeCommandsTest : LeftPaneFixture {
  // The dialog that was shown, and answered with `answer`; what was listed and queued; the rows
  // when they changed.
  std::string After(const QString& label, int command) {
    Click(PlaceOf(label.isEmpty() ? "News" : label));
    const std::string before = Rows();
    std::string told;
    DialogAnswers answers;
    answers.Next([&](QDialog& dialog) {
      told = QString(dialog.metaObject()->className()).section(':', -1).toStdString();
      if (!answer) return;
      dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(*answer));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    frame.lists.clear();
    Choose(label, command);
    if (!frame.lists.empty()) told += Listed();
    if (frame.state.listMode == ListMode::Today) told += "today";
    for (; frame.queue.HasWaiting();) told += frame.queue.Claim()->title + " ";
    return told + (Rows() == before ? "" : Rows());
  }
  // The commands that are grey in these rows' menus.
  std::set<int> Grey(std::initializer_list<const char*> labels) {
    std::set<int> grey;
    for (const char* const label : labels) {
      const std::unique_ptr<QMenu> menu(OpenMenu(label));
      EXPECT_TRUE(*label == 0 || menu->pos() == QPoint(50, 60));
      for (const QAction* const action : menu->findChildren<QAction*>())
        if (!action->isEnabled()) grey.insert(action->data().toInt());
    }
    return grey;
  }

  std::optional<std::string> answer;
};

TEST_F(TreeCommandsTest, EachDoesWhatItIsCalledToTheSelectedRow) {
  frame.db.Clock().Set(NoonOf(2008, 5, 1));  // the day of all posts
  frame.skin.SetHostValue(kValueModelName, "H3");
  frame.db.AddChannelWithPosts(sports, "Ball", 1);
  Open();
  const struct {
    const char* label;
    int command;
    const char* answer;
    std::string outcome;
  } cases[] = {
      {"Weekly", kCommandMoveChannel, nullptr, "CRSS_ChannelMoveDlg"},
      {"Weekly", kCommandChannelInfo, nullptr, "CRSS_ChannelInfoDlg"},
      {"", kCommandAddGroup, nullptr, "CRSS_GroupAddDlg"},
      {"", kCommandAddCabinet, nullptr, "CRSS_CabinetAddDlg"},
      {"", kCommandImportFile, nullptr, "QFileDialog"},
      {"", kCommandImportAddress, nullptr, "CRSS_OpmlDlg"},
      {"", kCommandSynchronise, nullptr, "CRSS_SyncDlg"},
      {"", kCommandToday, "", "Daily Post 2, Daily Post 1, Weekly Post 1, Ball Post 1, today"},
      {"Sports", kCommandTodayInGroup, "", "Ball Post 1, today"},
      {"News", kCommandSearchGroup, "1", "CRSS_SearchDlgDaily Post 1, Weekly Post 1, "},
      {"Weekly", kCommandSearchChannel, "Post", "CRSS_SearchDlgWeekly Post 1, "},
      {"Later", kCommandSearchCabinet, "ave", "CRSS_SearchDlg+"},
      {"보관함", kCommandSearchAllCabinets, "ave", "CRSS_SearchDlg+Keep Saved, "},
      {"News", kCommandSearchGroup, nullptr, "CRSS_SearchDlg"},
      {"Weekly", kCommandRefreshChannel, "", "Weekly "},
      {"News", kCommandRefreshGroup, "", "Daily "},
      {"Daily", kCommandMarkAllRead, "",
       "News(1) [Daily] Weekly(1) Sports(1) Ball(1) 보관함(1) Keep(1) Later"},
      {"보관함", kCommandMarkAllRead, "",
       "News(1) Daily Weekly(1) Sports(1) Ball(1) [보관함] Keep Later"},
      {"News", kCommandMarkAllRead, "", "[News] Daily Weekly Sports(1) Ball(1) 보관함 Keep Later"},
      {"Keep", kCommandMarkAllUnread, "",
       "News Daily Weekly Sports(1) Ball(1) 보관함(1) [Keep(1)] Later"},
      {"Weekly", kCommandRenameChild, "R&amp;D",
       "CRSS_ChannelRenameDlgNews Daily [R&D] Sports(1) Ball(1) 보관함(1) Keep(1) Later"},
      {"Sports", kCommandRenameGroup, "It's",
       "CRSS_GroupRenameDlgNews Daily R&D [It's(1)] Ball(1) 보관함(1) Keep(1) Later"},
      {"Later", kCommandRenameChild, "Box",
       "CRSS_ChannelRenameDlgNews Daily R&D It's(1) Ball(1) 보관함(1) Keep(1) [Box]"},
  };
  for (const auto& [label, command, word, outcome] : cases) {
    answer = word ? std::optional<std::string>(word) : std::nullopt;
    EXPECT_EQ(After(label, command), outcome) << label << " " << command;
  }
  EXPECT_EQ(frame.relists.size(), 4U) << "one for each mark";
  DialogAnswers answers;
  QString file;
  answers.Next([&](QDialog& dialog) {
    file = dynamic_cast<QFileDialog&>(dialog).selectedFiles()[0].section('/', -1);
  });
  Choose("", kCommandExportOpml);
  EXPECT_EQ(file, "Skyfold_20080501.xml");
  QSignalSpy settings(pane.get(), &CRSS_LeftContainer::SettingsWanted);
  Choose("", kCommandSettings);
  EXPECT_EQ(settings.count(), 1);
  frame.db.Sql("alter table TB_POST rename to TB_GONE");
  Choose("Ball", kCommandMarkAllRead);
  EXPECT_EQ(frame.questions, Strings{kTextReadStatusError});
}

struct NewAddressTest : TreeCommandsTest {
  NewAddressTest() {
    frame.visits[daily] = {.fault = {FeedFaultKind::HttpStatus, 410}};
    frame.visits[weekly].movedTo = "http://new.example/";
    frame.db.Sql("update TB_CHANNEL set channel_state = -1 where channel_title = 'Daily'");
    frame.db.Sql("update TB_CHANNEL set channel_htmllink = 'http://home.example/'");
    frame.skin.SetHostValue(kValueDialogs, kDialogsHelpful);
    Open();
  }
  // The commands beyond those that each channel has.
  std::set<int> Offered(const char* label) {
    const std::unique_ptr<QMenu> menu(OpenMenu(label));
    std::set<int> commands;
    for (const QAction* const action : menu->findChildren<QAction*>())
      if (action->data().toInt() > 0 && action->data().toInt() < 0x8000)
        commands.insert(action->data().toInt());
    return commands;
  }
  int ChannelsAt(const std::string& address) {
    return frame.db.Count("TB_CHANNEL where channel_xmllink = '" + address + "'");
  }
  // The questions while the home page of the dead channel is answered like this.
  Strings Look(const FeedCheckAnswer& given) {
    frame.questions.clear();
    Choose("Daily", kCommandFindAddress);
    EXPECT_EQ(frame.checked.back(), "http://home.example/");
    std::function(frame.answerCheck)(given);
    return frame.questions;
  }
};

TEST_F(NewAddressTest, ADeadChannelTakesTheFeedThatItsHomePageNamesWithItsPosts) {
  EXPECT_EQ(Offered("Daily"), std::set<int>{kCommandFindAddress});
  const FeedCheckAnswer page{.announcedFeed = "http://home.example/a$b'c"};
  EXPECT_EQ(Look(page), Strings{kTextAddressOffer});
  EXPECT_EQ(
      frame.askedMore,
      Korean("Daily$지금 주소: http://example.com/Daily$새 주소: http://home.example/a%24b'c"));
  EXPECT_FALSE(frame.queue.HasWaiting()) << "declined";
  frame.nextAnswer = MsgBoxAnswer::Consented;
  Look(page);
  EXPECT_EQ(frame.queue.Claim()->xmlLink, "http://home.example/a$b'c");
  EXPECT_EQ(frame.refreshes, 1);
  EXPECT_EQ(ChannelsAt("http://home.example/a$b''c"), 1);
  EXPECT_EQ(frame.db.Count("TB_POST"), 3);
  EXPECT_EQ(Look({.announcedFeed = "http://home.example/c"}),
            (Strings{kTextAddressOffer, kTextAddressBusy}));
}

TEST_F(NewAddressTest, WithoutOneTheUserIsToldWhyAndSeesThePage) {
  const std::string place = "$http://home.example/";
  const std::pair<FeedCheckAnswer, const char*> rows[] = {
      {{.fault = {FeedFaultKind::NoSuchHost}}, "그런 서버가 없습니다. 주소를 확인해 주세요."},
      {{.fault = {FeedFaultKind::WebPage}}, "홈페이지에 다른 피드가 없습니다"},
      {{.announcedFeed = "http://example.com/Daily", .fault = {FeedFaultKind::WebPage}},
       "홈페이지에 다른 피드가 없습니다"}};
  for (const auto& [given, reason] : rows) {
    EXPECT_EQ(Look(given), Strings{kTextNoNewAddress});
    EXPECT_EQ(frame.askedMore, Korean(reason) + place);
  }
  EXPECT_TRUE(frame.shown.empty());
  EXPECT_EQ(frame.messages.back(), "") << "the search has ended";
  frame.nextAnswer = MsgBoxAnswer::Consented;
  Look({});
  EXPECT_EQ(frame.shown, Strings{"http://home.example/"});
  frame.db.Sql("update TB_CHANNEL set channel_htmllink = ''");
  Choose("Daily", kCommandFindAddress);
  EXPECT_EQ(frame.checked.back(), "http://example.com/");
}

TEST_F(NewAddressTest, AMovedChannelTakesItsAddressWhereItsFolderHasItNotYet) {
  EXPECT_EQ(Offered("Weekly"), std::set<int>{kCommandUseAddress});
  frame.nextAnswer = MsgBoxAnswer::Consented;
  frame.db.Sql(
      "update TB_CHANNEL set channel_xmllink = 'http://new.example/' "
      "where channel_title = 'Daily'");
  Choose("Weekly", kCommandUseAddress);
  EXPECT_EQ(frame.questions, (Strings{kTextAddressOffer, kTextAddChannelDuplicate}));
  frame.db.Sql("delete from TB_CHANNEL where channel_title = 'Daily'");
  frame.periods["http://example.com/Weekly"] = std::chrono::hours(6);
  Choose("Weekly", kCommandUseAddress);
  EXPECT_EQ(frame.periods["http://new.example/"], std::chrono::hours(6));
  EXPECT_EQ(ChannelsAt("http://new.example/"), 1);
  EXPECT_TRUE(Offered("Weekly").empty());
  frame.skin.SetHostValue(kValueDialogs, "");
  EXPECT_TRUE(Offered("Daily").empty()) << "a host that says nothing";
}

TEST_F(TreeCommandsTest, WithoutAWebDirectoryItsButtonIsGreyAndSaysWhy) {
  const ShippedSkin bare("ENG", kLightSkin, "");
  CRSS_LeftToolBarWnd toolbar(bare.Get(), nullptr);
  const auto* const button = toolbar.findChildren<QAbstractButton*>().back();
  EXPECT_FALSE(button->isEnabled());
  EXPECT_EQ(button->toolTip(), "No channel directory has been set up.");
  EXPECT_EQ(button->accessibleName(), "Channel directory");
}

TEST_F(TreeCommandsTest, TheUpdateButtonQueuesEachChannelOnceAsItIsStored) {
  Open();
  Click(PlaceOf("Weekly"));
  pane->Run(kCommandRefreshSelection);
  buttons[CRSS_LeftToolBarWnd::kUpdate]->click();
  EXPECT_EQ(frame.refreshes, 2);
  const auto entry = frame.queue.Claim();
  EXPECT_EQ(std::tie(entry->id, entry->folderId, entry->title, entry->type, entry->order),
            std::tuple(weekly, news, "Weekly", "rss", 1));
  EXPECT_EQ(entry->xmlLink, "http://example.com/Weekly");
  EXPECT_EQ(frame.queue.Claim()->title, "Daily");
  EXPECT_FALSE(frame.queue.HasWaiting());
}

TEST_F(TreeCommandsTest, DeletingAsksFirstAndSparesWhatARefreshOrTheHostNeeds) {
  frame.db.AddChannelWithPosts(sports, "Ball", 4);
  AddFolder(store, "Host", 3);
  frame.db.Sql("update TB_FOLDER set folder_order = -1 where folder_name = 'Host'");
  Open();
  frame.state.unreadTotal = 10;
  const struct {
    const char* label;
    bool agrees, refreshes;
    Strings questions;
    const char* rows;
    int posts, unread;
  } cases[] = {
      {"Host", true, false, {kTextDeleteProtectedError}, "[Host]", 7, 10},
      {"Daily", false, false, {kTextDeleteChannel}, "[Daily(2)] Weekly(1) Sports(4)", 7, 10},
      {"Daily", true, false, {kTextDeleteChannel}, "News(1) Weekly(1) Sports(4)", 5, 8},
      {"Sports", true, false, {kTextDeleteGroup}, "Weekly(1) 보관함", 1, 4},
      {"보관함", true, false, {}, "[보관함(1)]", 1, 4},
      {"Keep", true, false, {kTextDeleteCabinet}, "보관함 Later", 1, 3},
      {"News", true, true, {kTextDeleteGroup, kTextDeleteBusyError}, "[News(1)] Weekly", 1, 3},
      {"News", true, false, {kTextDeleteBusyError}, "[News(1)] Weekly(1)", 1, 3},
      {"Weekly", true, false, {kTextDeleteChannel, kTextDeleteBusyError}, "[Weekly(1)]", 1, 3},
  };
  for (const auto& [label, agrees, refreshes, questions, rows, posts, unread] : cases) {
    frame.questions.clear();
    frame.nextAnswer = agrees ? MsgBoxAnswer::Consented : MsgBoxAnswer::Declined;
    frame.whileAsking = [this, queues = refreshes] {
      if (queues) pane->Run(kCommandRefreshAll);
    };
    Click(PlaceOf(label));
    pane->Run(kCommandDeleteSelection);
    EXPECT_EQ(frame.questions, questions) << label;
    EXPECT_NE(Rows().find(rows), std::string::npos) << Rows();
    EXPECT_EQ(frame.db.Count("TB_POST"), posts);
    EXPECT_EQ(frame.state.unreadTotal, unread);
  }
}

TEST_F(TreeCommandsTest, ACarefulHostsRightPressActsOnItsRowAndLeavesSelectionAndListAlone) {
  frame.skin.SetHostValue(kValueSelection, kSelectionCareful);
  frame.nextAnswer = MsgBoxAnswer::Consented;
  Open();
  for (const char* const selected : {"", "News", "Later"}) {
    *selected ? Click(PlaceOf(selected)) : tree->ClearSelection();
    const std::string before = Rows();
    frame.lists.clear();
    QMenu* const menu = OpenMenu("Keep");
    const QImage marked = tree->grab().toImage();
    menu->close();
    EXPECT_NE(tree->grab().toImage(), marked) << "the row whose menu is open was marked";
    delete menu;
    Choose("Weekly", kCommandMarkAllRead);
    EXPECT_EQ(Row("Weekly").data(), "Weekly");
    Choose("Weekly", kCommandMarkAllUnread);
    EXPECT_EQ(Rows(), before);
    EXPECT_TRUE(frame.lists.empty());
  }
  Choose("News", kCommandDeleteGroup);
  EXPECT_EQ(Rows(), "Sports 보관함(1) Keep(1) [Later]");
  EXPECT_TRUE(frame.relists.empty());
  EXPECT_EQ(frame.reloads, 7) << "the list may show a row's posts as those of its group";
  const std::tuple<const char*, int, const char*> rowsNextTo[] = {
      {"Later", kCommandDeleteChild, "Sports 보관함(1) [Keep(1)]"},
      {"Keep", kCommandDeleteChild, "Sports [보관함]"},
      {"Sports", kCommandDeleteGroup, "[보관함]"}};
  for (const auto& [label, command, rows] : rowsNextTo) {
    Click(PlaceOf(label));
    Choose(label, command);
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(frame.firstPosts.back(), FirstPost::Glimpse);
  }
}

TEST_F(TreeCommandsTest, APaneThatGoesWhileAQuestionStandsIsLeftAlone) {
  frame.whileAsking = [this] { pane.reset(); };
  DialogAnswers answers;
  for (int i = 0; i < 2; ++i) answers.Next([this](QDialog&) { pane.reset(); });
  for (const int command : {kCommandDeleteGroup, kCommandSearchGroup, kCommandRenameGroup}) {
    Open();
    Choose("News", command);
    EXPECT_EQ(pane, nullptr);
  }
}

TEST_F(TreeCommandsTest, MenusGreyWhatTheRowDoesNotAllowAndListsUntilTheTreeIsRead) {
  Open();
  using Commands = std::set<int>;
  EXPECT_EQ(Grey({"Sports", "Later"}), (Commands{kCommandMarkAllRead, kCommandMarkAllUnread}));
  EXPECT_EQ(Grey({"Daily", "Keep", ""}), Commands{kCommandSynchronise}) << "without a handset";
  std::unique_ptr<QMenu> menu(OpenMenu(""));
  for (const QAction* const action : menu->findChildren<QAction*>())
    EXPECT_TRUE(action->isEnabled() || action->toolTip() == "연결된 핸드셋이 없습니다.");
  menu.reset();
  frame.skin.SetHostValue(kValueModelName, "H3");
  EXPECT_EQ(Grey({"Daily", "Keep", ""}), Commands());
  frame.nextExport.reset();
  EXPECT_EQ(Grey({""}), (Commands{kCommandImportFile, kCommandImportAddress, kCommandExportOpml,
                                  kCommandSynchronise}));
  frame.db.Sql("delete from TB_FOLDER where folder_name = 'Sports'");
  frame.db.Sql("update TB_FOLDER set folder_order = -1");
  pane->ShowTree(ReadTree(store).value());
  EXPECT_EQ(Grey({"Daily", "News"}),
            (Commands{kCommandMoveChannel, kCommandDeleteGroup, kCommandRenameGroup}));
}

}  // namespace feedloom
