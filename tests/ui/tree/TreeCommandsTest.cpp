// What the commands of the rows' menus do, and when they are grey, over a real database.
#include <set>

#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {
namespace {

class TreeCommandsTest : public LeftPaneFixture {
 protected:
  // Actions that note what they are told, and answer with `answer`.
  void GiveActions() {
    Actions& to = frame.actions;
    const auto note = [this](const std::string& text) { return told += text, answer; };
    const auto noteFacts = [=](const ChannelFacts& channel) {
      return note(channel.title + " of " + channel.folderName + " at " + channel.xmlLink);
    };
    to.askSearchWord = [this] { return answer; };
    to.askGroupName = to.askCabinetName = note;
    to.askChannelName = noteFacts;
    to.moveChannel = to.showChannelInfo = noteFacts;
    to.exportOpml = note;
    to.addChannel = [=](const std::string& folder, const std::string&) { note(folder); };
    int number = 0;
    for (auto* const open : {&to.addGroup, &to.addCabinet, &to.importFile, &to.importAddress,
                             &to.synchronise, &to.openSettings, &to.openDirectory}) {
      *open = [=, n = ++number] { note(std::to_string(n)); };
    }
  }
  // What actions were told, what was listed, queued and asked, and the rows when they changed.
  std::string After(const QString& label, int command) {
    const std::size_t lists = frame.lists.size() + (label.isEmpty() ? 0 : 1);
    told.clear();
    Click(PlaceOf(label.isEmpty() ? "News" : label));
    const std::string before = Rows();
    Choose(label, command);
    if (frame.lists.size() > lists + label.isEmpty()) told += Listed();
    for (; frame.queue.HasWaiting();) told += frame.queue.Claim()->title + " ";
    return told + (Rows() == before ? "" : Rows());
  }
  // The commands of a row's menu that are grey.
  std::set<int> Grey(const QString& label) {
    std::set<int> grey;
    const std::unique_ptr<QMenu> menu(OpenMenu(label));
    EXPECT_TRUE(label.isEmpty() || menu->pos() == QPoint(50, 60));
    for (const QAction* const action : menu->findChildren<QAction*>()) {
      if (!action->isEnabled()) grey.insert(action->data().toInt());
    }
    return grey;
  }

  std::string told;
  std::optional<std::string> answer;
};

TEST_F(TreeCommandsTest, EachDoesWhatItIsCalledToTheSelectedRow) {
  GiveActions();
  frame.db.Clock().Set(NoonOf(2008, 5, 1));  // the day of all posts
  frame.db.AddChannelWithPosts(sports, "Ball", 1);
  Open();
  const std::string facts = "Weekly of News at http://example.com/Weekly";
  const struct {
    const char* label;
    int command;
    const char* answer;
    std::string outcome;
  } cases[] = {
      {"News", kCommandAddChannel, "", "News"},
      {"Weekly", kCommandAddChannel, "", "News"},
      {"Weekly", kCommandMoveChannel, "", facts},
      {"Weekly", kCommandChannelInfo, "", facts},
      {"", kCommandAddGroup, "", "1"},
      {"", kCommandAddCabinet, "", "2"},
      {"", kCommandImportFile, "", "3"},
      {"", kCommandImportAddress, "", "4"},
      {"", kCommandSynchronise, "", "5"},
      {"", kCommandSettings, "", "6"},
      {"", kCommandExportOpml, "", "Skyfold_20080501"},
      {"", kCommandToday, "", "Daily Post 2, Daily Post 1, Weekly Post 1, Ball Post 1, "},
      {"Sports", kCommandTodayInGroup, "", "Ball Post 1, "},
      {"News", kCommandSearchGroup, "1", "Daily Post 1, Weekly Post 1, "},
      {"Weekly", kCommandSearchChannel, "Post", "Weekly Post 1, "},
      {"Keep", kCommandSearchCabinet, "ave", "+Keep Saved, "},
      {"보관함", kCommandSearchAllCabinets, "ave", "+Keep Saved, "},
      {"Later", kCommandSearchCabinet, "ave", "+"},
      {"Weekly", kCommandRefreshChannel, "", "Weekly "},
      {"News", kCommandRefreshGroup, "", "Daily "},
      {"Daily", kCommandMarkAllRead, "",
       "News(1) [Daily] Weekly(1) Sports(1) Ball(1) 보관함(1) Keep(1) Later"},
      {"보관함", kCommandMarkAllRead, "",
       "News(1) Daily Weekly(1) Sports(1) Ball(1) [보관함] Keep Later"},
      {"News", kCommandMarkAllRead, "", "[News] Daily Weekly Sports(1) Ball(1) 보관함 Keep Later"},
      {"Weekly", kCommandMarkAllUnread, "",
       "News(1) Daily [Weekly(1)] Sports(1) Ball(1) 보관함 Keep Later"},
      {"Keep", kCommandMarkAllUnread, "",
       "News(1) Daily Weekly(1) Sports(1) Ball(1) 보관함(1) [Keep(1)] Later"},
      {"Weekly", kCommandRenameChild, "R&amp;D",
       facts + "News(1) Daily [R&D(1)] Sports(1) Ball(1) 보관함(1) Keep(1) Later"},
      {"Sports", kCommandRenameGroup, "It's",
       "SportsNews(1) Daily R&D(1) [It's(1)] Ball(1) 보관함(1) Keep(1) Later"},
      {"Later", kCommandRenameChild, "Box",
       "LaterNews(1) Daily R&D(1) It's(1) Ball(1) 보관함(1) Keep(1) [Box]"},
      {"Keep", kCommandRenameChild, nullptr, "Keep"},
      {"News", kCommandRenameGroup, nullptr, "News"},
      {"News", kCommandSearchGroup, nullptr, ""},
  };
  for (const auto& [label, command, word, outcome] : cases) {
    answer = word ? std::optional<std::string>(word) : std::nullopt;
    EXPECT_EQ(After(label, command), outcome) << label << " " << command;
    const bool isToday = command == kCommandToday || command == kCommandTodayInGroup;
    EXPECT_EQ(frame.state.listMode, isToday ? ListMode::Today : ListMode::Selection);
  }
  EXPECT_EQ(frame.relists.size(), 5U) << "one for each mark";
  EXPECT_TRUE(frame.relists[1].areScrapPosts && frame.relists[2].posts[0].readStatus == 1);
  pane->LoadTree();
  EXPECT_EQ(Rows(), "News(1) Daily R&D(1) It's(1) Ball(1) 보관함(1) Keep(1) Box");

  for (const char* const table : {"POST", "FOLDER", "CHANNEL"}) {
    frame.db.Sql(std::string("alter table TB_") + table + " rename to GONE_" + table);
  }
  answer = "Other";
  Choose("R&D", kCommandMarkAllRead);
  Choose("Daily", kCommandRenameChild);
  Choose("News", kCommandRenameGroup);
  EXPECT_EQ(frame.questions,
            (Strings{kTextReadStatusError, kTextRenameChildError, kTextRenameGroupError}));
  EXPECT_EQ(Rows(), "[News(1)] Daily R&D(1) It's(1) Ball(1) 보관함(1) Keep(1) Box");
}

TEST_F(TreeCommandsTest, TheUpdateButtonQueuesEachChannelOnceAsItIsStored) {
  Open();
  Click(PlaceOf("Weekly"));
  pane->RefreshSelection();
  Click(PlaceOf("Keep"));
  pane->RefreshSelection();
  buttons[CRSS_LeftToolBarWnd::kUpdate]->click();
  EXPECT_EQ(frame.refreshes, 2);
  for (const auto& [id, name] : {std::pair(weekly, "Weekly"), {daily, "Daily"}}) {
    const auto entry = frame.queue.Claim();
    EXPECT_EQ(std::tie(entry->channelId, entry->folderId, entry->title, entry->type, entry->order),
              std::tuple(id, news, name, "rss", 1));
    EXPECT_EQ(entry->xmlLink, std::string("http://example.com/") + name);
  }
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
      {"Sports", true, false, {kTextDeleteGroup}, "Weekly(1) 보관함(1)", 1, 4},
      {"보관함", true, false, {}, "[보관함(1)]", 1, 4},
      {"Keep", true, false, {kTextDeleteCabinet}, "보관함 Later", 1, 3},
      {"News", true, true, {kTextDeleteGroup, kTextDeleteBusyError}, "[News(1)] Weekly", 1, 3},
      {"News", true, false, {kTextDeleteBusyError}, "[News(1)] Weekly(1)", 1, 3},
      {"Weekly", true, false, {kTextDeleteChannel, kTextDeleteBusyError}, "[Weekly(1)]", 1, 3},
  };
  for (const auto& [label, agrees, refreshes, questions, rows, posts, unread] : cases) {
    frame.questions.clear();
    frame.nextAnswer = agrees ? MsgBoxAnswer::Consented : MsgBoxAnswer::Declined;
    frame.whileAsking = [this, queues = refreshes] { return queues ? pane->RefreshAll() : void(); };
    Click(PlaceOf(label));
    Press(Qt::Key_Delete);
    EXPECT_EQ(frame.questions, questions) << label;
    EXPECT_NE(Rows().find(rows), std::string::npos) << Rows();
    EXPECT_EQ(frame.db.Count("TB_POST"), posts);
    EXPECT_EQ(frame.state.unreadTotal, unread);
    EXPECT_TRUE(tree->SelectedRow().isValid() || Listed().empty());
  }
  EXPECT_EQ(frame.db.Count("TB_SCRAP_POST"), 0);
  EXPECT_EQ(pane->ChannelTitle(weekly), "Weekly") << "found at its new place";
  using enum MsgBoxKind;
  EXPECT_EQ(frame.kinds, (std::vector{Notice, YesNo, YesNo, YesNo, YesNo, YesNo, Notice, Notice,
                                      YesNo, Notice}));
}

TEST_F(TreeCommandsTest, APaneThatGoesWhileAQuestionStandsIsLeftAlone) {
  frame.whileAsking = [this] { pane.reset(); };
  frame.actions.askSearchWord = [this] { return pane.reset(), std::nullopt; };
  frame.actions.askGroupName = [this](const std::string&) { return pane.reset(), std::nullopt; };
  for (const int command : {kCommandDeleteGroup, kCommandSearchGroup, kCommandRenameGroup}) {
    Open();
    Choose("News", command);
    EXPECT_EQ(pane, nullptr);
  }
  EXPECT_EQ(frame.db.Count("TB_CHANNEL"), 2);
}

TEST_F(TreeCommandsTest, MenusGreyWhatTheRowOrAMissingActionDoesNotAllow) {
  Open();
  QContextMenuEvent nowhere(QContextMenuEvent::Mouse, {}, {});
  QCoreApplication::sendEvent(tree->viewport(), &nowhere);
  EXPECT_EQ(pane->findChild<QMenu*>(), nullptr) << "no row is selected";
  using Commands = std::set<int>;
  EXPECT_EQ(Grey("News"), (Commands{kCommandAddChannel, kCommandAddGroup, kCommandRenameGroup,
                                    kCommandSearchGroup}));
  EXPECT_EQ(Grey("Daily"), (Commands{kCommandAddChannel, kCommandMoveChannel, kCommandRenameChild,
                                     kCommandSearchChannel, kCommandChannelInfo}));
  EXPECT_EQ(Grey("보관함"), (Commands{kCommandAddCabinet, kCommandSearchAllCabinets}));
  EXPECT_EQ(Grey("Keep"), (Commands{kCommandRenameChild, kCommandSearchCabinet}));
  EXPECT_EQ(Grey(""), (Commands{kCommandAddChannel, kCommandAddGroup, kCommandAddCabinet,
                                kCommandImportFile, kCommandImportAddress, kCommandExportOpml,
                                kCommandSynchronise, kCommandSettings}));
  GiveActions();
  const Commands marks{kCommandMarkAllRead, kCommandMarkAllUnread};
  EXPECT_EQ(Grey("Sports"), marks);
  EXPECT_EQ(Grey("Later"), marks);
  EXPECT_EQ(Grey("Daily"), Commands());
  frame.db.Sql("update TB_POST set post_readStatus = 1");
  frame.db.Sql("delete from TB_FOLDER where folder_name = 'Sports'");
  frame.db.Sql("update TB_FOLDER set folder_order = -1");
  pane->LoadTree();
  EXPECT_EQ(Grey("Daily"), Commands{kCommandMoveChannel});
  EXPECT_EQ(Grey("News"), (Commands{kCommandDeleteGroup, kCommandRenameGroup}));
}

}  // namespace
}  // namespace feedloom
