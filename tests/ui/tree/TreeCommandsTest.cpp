// What the commands of the rows' menus do, by the mouse and the keyboard, over a real database.
#include "ui/tree/CRSS_LeftToolBarWnd.h"
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {
namespace {

using Strings = std::vector<std::string>;

class TreeCommandsTest : public LeftPaneFixture {
 protected:
  void AnswerYes() { frame.nextAnswer = MsgBoxAnswer::Consented; }
  std::string Asked() const { return frame.questions.empty() ? "" : frame.questions.back(); }
  QStringList WithCabinets(QStringList labels) const {
    return labels << CabinetTitle() + "(1)"
                  << "Keep(1)"
                  << "Later";
  }
};

TEST_F(TreeCommandsTest, DeletingAChannelAsksAndTakesItsPostsOutOfAllCounts) {
  Open();
  frame.state.unreadTotal = 10;
  Choose("Daily(2)", kCommandDeleteChild);
  EXPECT_EQ(Asked(), kTextDeleteChannel);
  EXPECT_EQ(frame.kinds.back(), MsgBoxKind::YesNo);
  EXPECT_EQ(Count("TB_POST"), 3);
  EXPECT_TRUE(Labels().contains("Daily(2)"));

  AnswerYes();
  Choose("Daily(2)", kCommandDeleteChild);
  EXPECT_EQ(Labels(), WithCabinets({"News(1)", "Weekly(1)", "Sports"}));
  EXPECT_EQ(Count("TB_POST"), 1);
  EXPECT_EQ(frame.state.unreadTotal, 8);
  EXPECT_TRUE(frame.lists.back().posts.empty());
  EXPECT_FALSE(Tree().SelectedRow().isValid());

  Choose("Weekly(1)", kCommandDeleteChild);
  EXPECT_EQ(Labels(), WithCabinets({"News", "Sports"}));
  EXPECT_EQ(Count("TB_CHANNEL"), 0);
}

TEST_F(TreeCommandsTest, AChannelThatWaitsForARefreshIsNotDeleted) {
  AnswerYes();
  Open();
  pane->RefreshAll();
  Choose("Daily(2)", kCommandDeleteChild);
  EXPECT_EQ(Asked(), kTextDeleteBusyError);
  EXPECT_EQ(frame.kinds.back(), MsgBoxKind::Notice);
  Choose("News(3)", kCommandDeleteGroup);
  EXPECT_EQ(Asked(), kTextDeleteBusyError);
  EXPECT_EQ(frame.questions.size(), 3U);  // a folder's is told before any question
  EXPECT_EQ(Count("TB_CHANNEL"), 2);
  Choose("Keep(1)", kCommandDeleteChild);
  EXPECT_EQ(Asked(), kTextDeleteCabinet);
  EXPECT_FALSE(Labels().contains("Keep(1)"));
}

TEST_F(TreeCommandsTest, DeletingACabinetTakesItsSavedPosts) {
  AnswerYes();
  Open();
  Choose("Keep(1)", kCommandDeleteChild);
  EXPECT_EQ(Labels().mid(4), (QStringList{CabinetTitle(), "Later"}));
  EXPECT_EQ(Count("TB_SCRAP_POST"), 0);
  EXPECT_EQ(Count("TB_POST"), 3);
}

TEST_F(TreeCommandsTest, DeletingAFolderTakesItsChannels) {
  AnswerYes();
  Open();
  frame.state.unreadTotal = 5;
  Choose("News(3)", kCommandDeleteGroup);
  EXPECT_EQ(Asked(), kTextDeleteGroup);
  EXPECT_EQ(frame.kinds.back(), MsgBoxKind::YesNo);
  EXPECT_EQ(Labels(), WithCabinets({"Sports"}));
  EXPECT_EQ(Count("TB_CHANNEL"), 0);
  EXPECT_EQ(Count("TB_POST"), 0);
  EXPECT_EQ(frame.state.unreadTotal, 2);
}

TEST_F(TreeCommandsTest, AFolderThatARefreshTakesWhileTheQuestionStandsIsKept) {
  AnswerYes();
  Open();
  frame.whileAsking = [this] { pane->RefreshAll(); };
  Choose("News(3)", kCommandDeleteGroup);
  EXPECT_EQ(frame.questions, (Strings{kTextDeleteGroup, kTextDeleteBusyError}));
  EXPECT_EQ(Count("TB_CHANNEL"), 2);
}

TEST_F(TreeCommandsTest, TheProtectedFolderStays) {
  frame.db.Sql("update TB_FOLDER set folder_order = -1 where folder_name = 'News'");
  frame.actions.askGroupName = [](const std::string&) { return "Other"; };
  AnswerYes();
  Open();
  Click("News(3)");
  Press(Qt::Key_Delete);
  EXPECT_EQ(frame.questions, Strings{kTextDeleteProtectedError});
  EXPECT_EQ(frame.kinds, std::vector{MsgBoxKind::Notice});
  AskForMenu(QContextMenuEvent::Mouse);
  EXPECT_FALSE(Find(*OpenMenu(), kCommandDeleteGroup)->isEnabled());
  QAction* const rename = Find(*OpenMenu(), kCommandRenameGroup);
  EXPECT_FALSE(rename->isEnabled());
  rename->setEnabled(true);
  ChooseInMenu(kCommandRenameGroup);
  EXPECT_TRUE(Labels().contains("News(3)"));
  EXPECT_EQ(Count("TB_FOLDER"), 2);
}

TEST_F(TreeCommandsTest, APaneThatGoesWhileAQuestionStandsIsLeftAlone) {
  frame.whileAsking = [this] { pane.reset(); };
  Open();
  Click("Daily(2)");
  Press(Qt::Key_Delete);
  EXPECT_EQ(Count("TB_CHANNEL"), 2);
  frame.whileAsking = {};

  frame.actions.askSearchWord = [this] {
    pane.reset();
    frame.actions = {};
    return std::nullopt;
  };
  frame.actions.askGroupName = [ask = frame.actions.askSearchWord](const std::string&) {
    return ask();
  };
  for (const int command : {kCommandSearchGroup, kCommandRenameGroup}) {
    const Actions actions = frame.actions;
    Open();
    Choose("News(3)", command);
    EXPECT_EQ(pane, nullptr);
    frame.actions = actions;
  }
}

TEST_F(TreeCommandsTest, TheDeleteKeyDeletesRowsOfAllKindsButTheCabinetRoot) {
  AnswerYes();
  Open();
  Press(Qt::Key_Delete);
  Click(CabinetTitle() + "(1)");
  Press(Qt::Key_Delete);
  EXPECT_TRUE(frame.questions.empty());
  Click("Weekly(1)");
  Press(Qt::Key_Delete);
  Click("Sports");
  Press(Qt::Key_Delete);
  EXPECT_EQ(frame.questions, (Strings{kTextDeleteChannel, kTextDeleteGroup}));
  EXPECT_EQ(Labels(), WithCabinets({"News(2)", "Daily(2)"}));
}

TEST_F(TreeCommandsTest, RenamesFoldersChannelsAndCabinets) {
  Strings presets;
  frame.actions.askGroupName = [&](const std::string& name) {
    presets.push_back(name);
    return "Press";
  };
  frame.actions.askChannelName = [&](const ChannelFacts& channel) {
    presets.push_back(channel.title + " in " + channel.folderName);
    return "News(2)";
  };
  frame.actions.askCabinetName = [&](const std::string& title) {
    presets.push_back(title);
    return "It's";
  };
  Open();
  Choose("News(3)", kCommandRenameGroup);
  Choose("Daily(2)", kCommandRenameChild);
  Choose("Later", kCommandRenameChild);
  EXPECT_EQ(presets, (Strings{"News", "Daily in Press", "Later"}));
  EXPECT_EQ(Labels(), (QStringList{"Press(3)", "News(2)(2)", "Weekly(1)", "Sports",
                                   CabinetTitle() + "(1)", "Keep(1)", "It's"}));
  pane->LoadTree();
  EXPECT_TRUE(Labels().contains("News(2)(2)"));
  EXPECT_TRUE(Labels().contains("It's"));
}

TEST_F(TreeCommandsTest, ANameThatCannotBeStoredIsReported) {
  frame.actions.askGroupName = [](const std::string&) { return "Press"; };
  frame.actions.askChannelName = [](const ChannelFacts&) { return "Other"; };
  frame.actions.askCabinetName = [](const std::string&) { return std::nullopt; };
  Open();
  frame.db.Sql("alter table TB_FOLDER rename to TB_GONE");
  frame.db.Sql("alter table TB_CHANNEL rename to TB_GONE2");
  Click("Daily(2)");
  Choose("Daily(2)", kCommandRenameChild);
  EXPECT_EQ(Asked(), kTextRenameChildError);
  Choose("News(3)", kCommandRenameGroup);
  EXPECT_EQ(Asked(), kTextRenameGroupError);
  Choose("Later", kCommandRenameChild);  // given up
  EXPECT_EQ(frame.questions.size(), 2U);
  EXPECT_EQ(Labels(), WithCabinets({"News(3)", "Daily(2)", "Weekly(1)", "Sports"}));
}

TEST_F(TreeCommandsTest, MarkingARowRecountsItAndItsGroupAndReloadsTheList) {
  Open();
  Choose("Daily(2)", kCommandMarkAllRead);
  EXPECT_EQ(Labels(), WithCabinets({"News(1)", "Daily", "Weekly(1)", "Sports"}));
  EXPECT_EQ(frame.relists.back().posts[0].readStatus, 1);
  Choose("News(1)", kCommandMarkAllRead);
  EXPECT_EQ(Labels(), WithCabinets({"News", "Daily", "Weekly", "Sports"}));
  Choose("News", kCommandMarkAllUnread);
  EXPECT_EQ(Labels(), WithCabinets({"News(3)", "Daily(2)", "Weekly(1)", "Sports"}));
  EXPECT_EQ(frame.relists.back().posts.size(), 3U);

  Choose(CabinetTitle() + "(1)", kCommandMarkAllRead);
  EXPECT_EQ(Labels().mid(4), (QStringList{CabinetTitle(), "Keep", "Later"}));
  Choose("Keep", kCommandMarkAllUnread);
  EXPECT_EQ(Labels().mid(4), (QStringList{CabinetTitle() + "(1)", "Keep(1)", "Later"}));
  EXPECT_TRUE(frame.relists.back().areScrapPosts);
}

TEST_F(TreeCommandsTest, AMarkThatCannotBeStoredIsReportedAndChangesNothing) {
  Open();
  Click("Daily(2)");
  frame.db.Sql("alter table TB_POST rename to TB_GONE");
  Choose("Daily(2)", kCommandMarkAllRead);
  EXPECT_EQ(Asked(), kTextReadStatusError);
  EXPECT_TRUE(Labels().contains("Daily(2)"));
  EXPECT_TRUE(frame.relists.empty());
}

TEST_F(TreeCommandsTest, RefreshesTheChannelOrTheFolder) {
  Open();
  Choose("Weekly(1)", kCommandRefreshChannel);
  const auto first = frame.queue.Claim();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->channelId, weekly);
  EXPECT_EQ(first->folderId, news);
  EXPECT_EQ(first->title, "Weekly");
  Choose("News(3)", kCommandRefreshGroup);
  EXPECT_EQ(frame.queue.Claim()->channelId, daily);
  EXPECT_FALSE(frame.queue.HasWaiting());  // the other one is in it already
  EXPECT_EQ(frame.refreshes, 2);
  Click("Keep(1)");
  pane->RefreshSelection();
  EXPECT_FALSE(frame.queue.HasWaiting());
}

TEST_F(TreeCommandsTest, ListsTodaysUnreadPosts) {
  const int ball = frame.db.AddChannelWithPosts(FolderId("Sports"), "Ball", 1);
  const std::string today = FormatLocalTime(frame.GetStore().GetClock().Now(), "%Y-%m-%d 00:00:01");
  frame.db.Sql("update TB_POST set post_pubDate = '" + today + "' where post_channelID in (" +
               std::to_string(ball) + ", " + std::to_string(weekly) + ")");
  Open();
  Choose("Sports(1)", kCommandTodayInGroup);
  ASSERT_EQ(frame.lists.back().posts.size(), 1U);
  EXPECT_EQ(frame.lists.back().posts[0].ownerId, ball);
  EXPECT_EQ(frame.state.listMode, ListMode::Today);
  QTest::mouseClick(Buttons()[CRSS_LeftToolBarWnd::kMenu], Qt::LeftButton);
  ChooseInMenu(kCommandToday);
  EXPECT_EQ(frame.lists.back().posts.size(), 2U);
  EXPECT_EQ(frame.state.listMode, ListMode::Today);
}

TEST_F(TreeCommandsTest, SearchesInTheSelectedRow) {
  frame.actions.askSearchWord = [] { return "1"; };
  Open();
  Choose("News(3)", kCommandSearchGroup);
  EXPECT_EQ(ListedTitles(), (Strings{"Post 1", "Post 1"}));
  EXPECT_TRUE(frame.lists.back().wereSearched);
  EXPECT_FALSE(frame.state.listShowsSelection);
  Choose("Weekly(1)", kCommandSearchChannel);
  EXPECT_EQ(ListedTitles(), Strings{"Post 1"});
  EXPECT_EQ(frame.lists.back().posts[0].ownerTitle, "Weekly");

  frame.actions.askSearchWord = [] { return "ave"; };
  Choose("Keep(1)", kCommandSearchCabinet);
  EXPECT_EQ(ListedTitles(), Strings{"Saved"});
  EXPECT_TRUE(frame.lists.back().areScrapPosts);
  Choose(CabinetTitle() + "(1)", kCommandSearchAllCabinets);
  EXPECT_EQ(ListedTitles(), Strings{"Saved"});
  Choose("Later", kCommandSearchCabinet);
  EXPECT_TRUE(frame.lists.back().posts.empty());

  const std::size_t lists = frame.lists.size();
  frame.actions.askSearchWord = [] { return std::nullopt; };
  Choose("Later", kCommandSearchCabinet);
  EXPECT_EQ(frame.lists.size(), lists);
}

TEST_F(TreeCommandsTest, DialogsLearnWhichRowTheyAreAbout) {
  Strings told;
  const auto tell = [&](const std::string& dialog) {
    return [&, dialog](const ChannelFacts& channel) {
      told.push_back(dialog + channel.title + ", " + channel.folderName + ", " + channel.xmlLink);
    };
  };
  frame.actions.addChannel = [&](const std::string& folder, const std::string&) {
    told.push_back("add " + folder);
  };
  frame.actions.moveChannel = tell("move ");
  frame.actions.showChannelInfo = tell("about ");
  Open();
  Choose("News(3)", kCommandAddChannel);
  Choose("Weekly(1)", kCommandAddChannel);
  Choose("Weekly(1)", kCommandMoveChannel);
  Choose("Weekly(1)", kCommandChannelInfo);
  const std::string link =
      frame.db.Value("select channel_xmllink from TB_CHANNEL where channel_title = 'Weekly'");
  EXPECT_EQ(told, (Strings{"add News", "add News", "move Weekly, News, " + link,
                           "about Weekly, News, " + link}));
}

TEST_F(TreeCommandsTest, TheWholeMenuOpensEachDialog) {
  Strings opened;
  const auto open = [&](const char* name) { return [&, name] { opened.emplace_back(name); }; };
  frame.actions.addGroup = open("group");
  frame.actions.addCabinet = open("cabinet");
  frame.actions.importFile = open("file");
  frame.actions.importAddress = open("address");
  frame.actions.synchronise = open("handset");
  frame.actions.openSettings = open("settings");
  frame.actions.openDirectory = open("directory");
  frame.actions.exportOpml = [&](const std::string& name) { opened.push_back(name); };
  frame.db.Clock().Set(NoonOf(2008, 5, 1));
  Open();
  for (const int command :
       {kCommandAddGroup, kCommandAddCabinet, kCommandImportFile, kCommandImportAddress,
        kCommandExportOpml, kCommandSynchronise, kCommandSettings}) {
    QTest::mouseClick(Buttons()[CRSS_LeftToolBarWnd::kMenu], Qt::LeftButton);
    ChooseInMenu(command);
  }
  QTest::mouseClick(Buttons()[CRSS_LeftToolBarWnd::kDirectory], Qt::LeftButton);
  EXPECT_EQ(opened, (Strings{"group", "cabinet", "file", "address", "Skyfold_20080501", "handset",
                             "settings", "directory"}));
}

TEST_F(TreeCommandsTest, TheMenuGreysMarksForARowWithoutPostsAndMovesWithoutAnotherFolder) {
  frame.actions.moveChannel = [](const ChannelFacts&) {};
  Open();
  const auto isEnabled = [&](const QString& label, int command) {
    Click(label, Qt::RightButton);
    AskForMenu(QContextMenuEvent::Keyboard);
    const bool enabled = Find(*OpenMenu(), command)->isEnabled();
    CloseMenu();
    return enabled;
  };
  EXPECT_TRUE(isEnabled("Daily(2)", kCommandMarkAllRead));
  EXPECT_FALSE(isEnabled("Sports", kCommandMarkAllRead));
  EXPECT_FALSE(isEnabled("Later", kCommandMarkAllUnread));
  EXPECT_TRUE(isEnabled("Daily(2)", kCommandMoveChannel));
  frame.db.Sql("update TB_POST set post_readStatus = 1");
  frame.db.Sql("delete from TB_FOLDER where folder_name = 'Sports'");
  pane->LoadTree();
  EXPECT_TRUE(isEnabled("Daily", kCommandMarkAllUnread));
  EXPECT_FALSE(isEnabled("Daily", kCommandMoveChannel));
}

TEST_F(TreeCommandsTest, NoMenuOpensWithoutASelectedRow) {
  Open();
  AskForMenu(QContextMenuEvent::Mouse);
  EXPECT_EQ(OpenMenu(), nullptr);
}

}  // namespace
}  // namespace feedloom
