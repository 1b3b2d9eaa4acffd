#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTextDocumentFragment>

#include "platform/Messages.h"
#include "store/StoreKit.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/RefreshEntries.h"

namespace feedloom {
namespace {

// News (5 unread) holds Daily (3) and Weekly (2), Sports (0) holds nothing; the cabinet root (4)
// holds Keep (3) and Later (1).
class GroupTreeModelTest : public testing::Test {
 protected:
  GroupTreeModelTest() { model.Load(Content()); }

  static TreeContent Content() {
    return {.folders = {{.name = "News", .id = 7, .order = -1, .unreadCount = 5},
                        {.name = "Sports", .id = 3, .order = 1}},
            .channels = {Channel(11, 7, "Daily", 3), Channel(12, 99, "Lost", 6),
                         Channel(10, 7, "Weekly", 2)},
            .cabinets = {{.id = 11, .title = "Keep", .order = 1, .unreadCount = 3},
                         {.id = 2, .title = "Later", .order = 2, .unreadCount = 1}},
            .cabinetTitle = "Cabinets",
            .unreadInCabinets = 4};
  }

  static ChannelRow Channel(int id, int folderId, const std::string& title, int unreadCount) {
    return {.title = title,
            .xmlLink = "http://feed.example/" + title,
            .id = id,
            .folderId = folderId,
            .order = 2 * id,
            .unreadCount = unreadCount};
  }

  // All labels, children indented by a blank.
  std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (int group = 0; group < model.rowCount(); ++group) {
      const QModelIndex header = model.index(group, 0);
      labels.push_back(header.data().toString().toStdString());
      for (int child = 0; child < model.rowCount(header); ++child) {
        labels.push_back(" " + model.index(child, 0, header).data().toString().toStdString());
      }
    }
    return labels;
  }

  QVariant OfChannel(int id, int role) const { return model.FindChannel(id).data(role); }

  GroupTreeModel model{CodePage::Korean(), {"not downloaded", "not a feed"}};
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

using Strings = std::vector<std::string>;

TEST_F(GroupTreeModelTest, ShowsFoldersWithTheirChannelsAndThenTheCabinets) {
  EXPECT_EQ(Labels(), (Strings{"News(5)", " Daily(3)", " Weekly(2)", "Sports", "Cabinets(4)",
                               " Keep(3)", " Later(1)"}));
}

TEST_F(GroupTreeModelTest, IsReplacedWholeByAnotherLoad) {
  model.Load({.folders = {{.name = "Only", .id = 1}},
              .channels = {Channel(5, 1, "One", -1)},
              .cabinets = {},
              .cabinetTitle = "Cabinets",
              .unreadInCabinets = -1});
  EXPECT_EQ(Labels(), (Strings{"Only", " One", "Cabinets"}));
  EXPECT_FALSE(model.FindChannel(11).isValid());
}

TEST_F(GroupTreeModelTest, ChangesAChannelsCountTogetherWithItsFolders) {
  EXPECT_EQ(model.SetChannelUnread(11, 10), 7);
  EXPECT_EQ(model.SetChannelUnread(10, 0), -2);
  EXPECT_EQ(model.SetChannelUnread(10, 0), 0);
  EXPECT_EQ(Labels(), (Strings{"News(10)", " Daily(10)", " Weekly", "Sports", "Cabinets(4)",
                               " Keep(3)", " Later(1)"}));
}

TEST_F(GroupTreeModelTest, IgnoresUnknownChannelsAndCountsThatTheStoreCouldNotTell) {
  const Strings before = Labels();
  EXPECT_EQ(model.SetChannelUnread(12, 6), 0);
  EXPECT_EQ(model.SetChannelUnread(11, -1), 0);
  model.LowerChannelUnread(999);
  model.LowerCabinetUnread(999);
  model.SetChannelNew(999, true);
  model.SetChannelState(999, -2);
  EXPECT_EQ(Labels(), before);
  EXPECT_FALSE(model.FindChannel(999).isValid());
  EXPECT_EQ(model.ChildAt(QModelIndex()), nullptr);
}

TEST_F(GroupTreeModelTest, LowersCountsOneByOneAndNotBelowZero) {
  model.LowerChannelUnread(11);
  for (int i = 0; i < 3; ++i) model.LowerCabinetUnread(2);
  EXPECT_EQ(Labels(), (Strings{"News(4)", " Daily(2)", " Weekly(2)", "Sports", "Cabinets(3)",
                               " Keep(3)", " Later"}));
  model.LowerCabinetUnread(11);  // a channel has this id too
  EXPECT_EQ(Labels()[5], " Keep(2)");
  EXPECT_EQ(Labels()[1], " Daily(2)");
}

TEST_F(GroupTreeModelTest, MarksChannelsAsNewAndAsFailing) {
  model.SetChannelNew(11, true);
  model.SetChannelState(10, -3);
  EXPECT_TRUE(OfChannel(11, GroupTreeModel::IsNewRole).toBool());
  EXPECT_FALSE(OfChannel(10, GroupTreeModel::IsNewRole).toBool());
  EXPECT_EQ(OfChannel(10, GroupTreeModel::StateRole), -3);
  EXPECT_EQ(OfChannel(11, GroupTreeModel::StateRole), 0);
}

TEST_F(GroupTreeModelTest, SaysOnceForEachRowWhatHasChanged) {
  QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  model.SetChannelUnread(11, 4);
  EXPECT_EQ(changes.size(), 2);  // channel and folder
  model.SetChannelNew(11, true);
  model.SetChannelState(11, -2);
  EXPECT_EQ(changes.size(), 4);
  model.SetChannelUnread(11, 4);
  model.SetChannelNew(11, true);
  model.SetChannelState(11, -2);
  EXPECT_EQ(changes.size(), 4);
}

TEST_F(GroupTreeModelTest, AppendsAChannelToItsFolder) {
  EXPECT_TRUE(model.AppendChannel(Channel(50, 3, "Ball", 2)));
  EXPECT_TRUE(model.AppendChannel(Channel(51, 3, "Bat", 0)));
  EXPECT_FALSE(model.AppendChannel(Channel(50, 7, "Ball again", 1)));
  EXPECT_FALSE(model.AppendChannel(Channel(52, 99, "Nowhere", 1)));
  EXPECT_FALSE(model.AppendChannel(Channel(53, 0, "In the cabinets", 1)));
  EXPECT_EQ(model.SetChannelUnread(51, 5), 5);
  EXPECT_EQ(Labels(), (Strings{"News(5)", " Daily(3)", " Weekly(2)", "Sports(7)", " Ball(2)",
                               " Bat(5)", "Cabinets(4)", " Keep(3)", " Later(1)"}));
}

TEST_F(GroupTreeModelTest, AppendsFoldersBeforeTheCabinetsAndCabinetsAtTheEnd) {
  model.AppendFolder({.name = "Last", .id = 4, .order = 2});
  model.AppendFolder({.name = "Again", .id = 7});  // News has this id
  model.AppendCabinet({.id = 3, .title = "Third", .order = 3});
  model.AppendCabinet({.id = 2, .title = "Again"});
  EXPECT_TRUE(model.AppendChannel(Channel(20, 4, "First", 1)));
  EXPECT_EQ(Labels(), (Strings{"News(5)", " Daily(3)", " Weekly(2)", "Sports", "Last(1)",
                               " First(1)", "Cabinets(4)", " Keep(3)", " Later(1)", " Third"}));
  GroupTreeModel unread{CodePage::Korean(), {}};
  unread.AppendFolder({.name = "Early", .id = 1});
  unread.AppendCabinet({.id = 1, .title = "Early"});
  EXPECT_EQ(unread.rowCount(), 0);
}

TEST_F(GroupTreeModelTest, AMovedChannelTakesItsPostsAlongAndStandsWhereItsOrderBelongs) {
  model.AppendChannel(Channel(8, 3, "Goals", 0));
  model.AppendChannel(Channel(30, 3, "Scores", 0));
  const QPersistentModelIndex daily = model.FindChannel(11);
  EXPECT_TRUE(model.MoveChannel(11, 3));
  EXPECT_EQ(Labels(), (Strings{"News(2)", " Weekly(2)", "Sports(3)", " Goals", " Daily(3)",
                               " Scores", "Cabinets(4)", " Keep(3)", " Later(1)"}));
  EXPECT_EQ(daily.data(), "Daily(3)");
  EXPECT_EQ(model.FindChannel(10).data(), "Weekly(2)");
  EXPECT_EQ(model.FindChannel(30).data(), "Scores");
  ChannelRow equal = Channel(9, 7, "Equal", 0);
  equal.order = 20;  // Weekly's
  model.AppendChannel(equal);
  EXPECT_TRUE(model.MoveChannel(10, 3));
  EXPECT_TRUE(model.MoveChannel(10, 7));
  EXPECT_EQ(Labels()[1], " Equal");        // by id, as the store has them
  EXPECT_FALSE(model.MoveChannel(11, 3));  // it is there already
  EXPECT_FALSE(model.MoveChannel(11, 99));
  EXPECT_FALSE(model.MoveChannel(99, 3));
}

TEST_F(GroupTreeModelTest, QueuesEachChannelOnceInTheOrderOfTheRows) {
  model.AppendChannel(Channel(50, 3, "Ball", 0));
  const auto entries = RefreshEntriesOf(model.Groups());
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].channelId, 11);
  EXPECT_EQ(entries[1].channelId, 10);
  EXPECT_EQ(entries[2].channelId, 50);
  EXPECT_EQ(entries[2].folderId, 3);
  EXPECT_EQ(entries[2].title, "Ball");
  EXPECT_EQ(entries[2].xmlLink, "http://feed.example/Ball");
  EXPECT_EQ(entries[2].type, "rss");
  EXPECT_EQ(entries[2].order, 100);
}

TEST_F(GroupTreeModelTest, ShowsANameThatEndsInParenthesesWhole) {
  model.AppendChannel(Channel(60, 3, "News(2)", 0));
  EXPECT_EQ(Labels()[4], " News(2)");
  model.SetChannelUnread(60, 3);
  EXPECT_EQ(Labels()[4], " News(2)(3)");
  model.SetChannelUnread(60, 0);
  EXPECT_EQ(Labels()[4], " News(2)");
  EXPECT_EQ(model.ChildAt(model.FindChannel(60))->title, "News(2)");
}

TEST_F(GroupTreeModelTest, ShowsAnyTitleOnOneLine) {
  model.AppendChannel(Channel(60, 3, Korean("속보\r\n경제\t\x01") + std::string(1, '\0'), 1));
  EXPECT_EQ(OfChannel(60, Qt::DisplayRole).toString(), "속보 경제(1)");
}

TEST_F(GroupTreeModelTest, AVeryLongTitleKeepsItsCount) {
  model.AppendChannel(Channel(60, 3, std::string(100'000, 'x'), 9));
  EXPECT_EQ(OfChannel(60, Qt::DisplayRole).toString(), QString(500, u'x') + "…(9)");
}

TEST_F(GroupTreeModelTest, TellsWhyAChannelFails) {
  const auto toolTip = [&](int id) {
    return QTextDocumentFragment::fromHtml(OfChannel(id, Qt::ToolTipRole).toString())
        .toPlainText()
        .toStdString();
  };
  EXPECT_EQ(toolTip(11), "Daily");
  model.SetChannelState(11, kDownloadFailed);
  EXPECT_EQ(toolTip(11), "Daily\nnot downloaded");
  model.SetChannelState(11, kDocumentRefused);
  EXPECT_EQ(toolTip(11), "Daily\nnot a feed");
  model.AppendChannel(Channel(60, 3, "<h1>x</h1> & <img src='file:///etc/logo.png'>", 0));
  EXPECT_EQ(toolTip(60), "<h1>x</h1> & <img src='file:///etc/logo.png'>");
}

TEST_F(GroupTreeModelTest, TakesNewCountsForManyRowsAtOnce) {
  model.SetChannelCounts({{.name = "", .id = 7, .unreadCount = 1}, {.name = "", .id = 3}},
                         {Channel(11, 7, "", 0), Channel(10, 7, "", 1), Channel(99, 7, "", 8)});
  model.SetCabinetCounts(2, {{.id = 2, .title = "", .unreadCount = 2}});
  EXPECT_EQ(Labels(), (Strings{"News(1)", " Daily", " Weekly(1)", "Sports", "Cabinets(2)",
                               " Keep(3)", " Later(2)"}));
  model.SetChannelCounts({{.name = "", .id = 7, .unreadCount = -1}}, {Channel(11, 7, "", -1)});
  model.SetCabinetCounts(-1, {});
  EXPECT_EQ(Labels()[0], "News(1)");
  EXPECT_EQ(Labels()[4], "Cabinets(2)");
}

TEST_F(GroupTreeModelTest, ARemovedRowTakesItsPostsOutOfItsGroup) {
  EXPECT_EQ(model.Remove(model.FindChannel(11)), 3);
  EXPECT_EQ(Labels()[0], "News(2)");
  EXPECT_EQ(Labels()[1], " Weekly(2)");
  EXPECT_EQ(model.SetChannelUnread(10, 4), 2);  // found at its new place
  EXPECT_EQ(model.Remove(model.FindChannel(10)), 4);
  EXPECT_EQ(Labels(), (Strings{"News", "Sports", "Cabinets(4)", " Keep(3)", " Later(1)"}));
}

TEST_F(GroupTreeModelTest, ARemovedFolderTakesItsChannelsAlong) {
  model.AppendChannel(Channel(50, 3, "Ball", 1));
  EXPECT_EQ(model.Remove(model.index(0, 0)), 5);
  EXPECT_EQ(Labels(), (Strings{"Sports(1)", " Ball(1)", "Cabinets(4)", " Keep(3)", " Later(1)"}));
  EXPECT_FALSE(model.FindChannel(11).isValid());
  EXPECT_EQ(model.SetChannelUnread(50, 2), 1);
}

TEST_F(GroupTreeModelTest, ARenamedRowKeepsItsCount) {
  model.Rename(model.FindChannel(11), "News(2)");
  model.Rename(model.index(1, 0), "");
  EXPECT_EQ(Labels()[1], " News(2)(3)");
  EXPECT_EQ(Labels()[3], "");
}

TEST_F(GroupTreeModelTest, FindsUnreadRowsInBothDirectionsAcrossGroups) {
  model.SetChannelUnread(10, 0);
  const auto after = [&](const QModelIndex& from) {
    return model.FindUnread(from, true).data().toString().toStdString();
  };
  const auto before = [&](const QModelIndex& from) {
    return model.FindUnread(from, false).data().toString().toStdString();
  };
  const QModelIndex cabinets = model.index(2, 0);
  const QModelIndex keep = model.index(0, 0, cabinets);
  const QModelIndex later = model.index(1, 0, cabinets);
  EXPECT_EQ(after({}), "Daily(3)");
  EXPECT_EQ(after(model.FindChannel(11)), "Keep(3)");
  EXPECT_EQ(after(model.index(0, 0)), "Keep(3)");  // a folder stands for its channels
  EXPECT_EQ(after(keep), "Later(1)");
  EXPECT_EQ(after(later), "");
  EXPECT_EQ(after(cabinets), "");
  EXPECT_EQ(before({}), "Later(1)");
  EXPECT_EQ(before(keep), "Daily(3)");
  EXPECT_EQ(before(cabinets), "Daily(3)");
  EXPECT_EQ(before(model.FindChannel(11)), "");
}

}  // namespace
}  // namespace feedloom
