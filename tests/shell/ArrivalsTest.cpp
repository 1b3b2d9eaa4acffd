// What comes into the window without its user: from a refresh, and from other programs.
#include "shell/ModuleFixture.h"
#include "store/ChannelAdder.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/ReadStatus.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

struct Arrivals : ModuleFixture {
  // The folder F has the channels A, B and C, with the ids 1 to 3.
  Arrivals() {
    Sql("update TB_FOLDER set folder_name = 'F'");
    Sql("update TB_CHANNEL set channel_title = 'A'");
    for (const char* const title : {"B", "C"}) InsertChannel(store_, title, title, "", 1, 1);
  }
  bool eventFilter(QObject* window, QEvent* event) override {
    const bool isHandled = ModuleFixture::eventFilter(window, event);
    if (shown_.size() < texts_.size()) shown_.push_back(Rows());
    return isHandled;
  }
  // The labels of the folders and channels, and each channel with new posts with a star.
  std::string Rows() {
    QString rows;
    for (auto row = Tree().model()->index(0, 0); row.data() != "보관함";
         row = Tree().indexBelow(row))
      rows += row.data().toString() + (row.data(GroupTreeModel::IsNewRole).toBool() ? "* " : " ");
    return rows.toStdString();
  }
  bool Become(const std::string& rows) {
    return WaitUntil([&] { return Rows() == rows; }) || (ADD_FAILURE() << Rows(), false);
  }
  // The user comes back from another window.
  void ComeBack() {
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    host_->activateWindow();
  }

  std::vector<std::string> shown_;  // the rows at each status text
};

TEST_F(Arrivals, AreCountedTogetherBeforeEachChannelIsTold) {
  CreateFrame();
  for (const int channel : {1, 3, 3}) AddPosts(channel, 1);
  shown_.resize(texts_.size());
  const auto before = shown_.size();
  Send(kMessageChannelResult, kDownloadFailed, 2);
  EXPECT_EQ(shown_.back(), "F A B C ");
  Refresh({3, 1, 2});
  shown_.erase(shown_.begin(), shown_.begin() + static_cast<int>(before) + 1);
  EXPECT_EQ(shown_, std::vector<std::string>(3, "F(3) A(1)* B C(2)* "));
  EXPECT_EQ(UnreadTotal(), 3);
  EXPECT_NE(texts_.back().find("B"), std::string::npos);
  AddPosts(2, 1);
  Sql("alter table TB_POST rename to TB_KEPT");
  Send(kMessageChannelResult, kChannelRefreshed, 2);
  EXPECT_TRUE(WaitUntil([&] { return texts_.size() > before + 4; }));
  EXPECT_EQ(Rows(), "F(3) A(1)* B C(2)* ");
  Sql("alter table TB_KEPT rename to TB_POST");
  Send(kMessageChannelResult, kChannelRefreshed, 2);
  Send(kMessageChannelResult, kRunEnded);
  EXPECT_EQ(Rows(), "F(4) A(1)* B(1)* C(2)* ");
}

TEST_F(Arrivals, AreCountedOnceAlsoOfAWorkerThatWasStopped) {
  CreateFrame();
  const auto begin = [this] { Send(kMessageChannelWorker, 1, 0); };
  const auto recount = [this] { The<Reading>().RecountUnread(false); };
  const auto end = [this] { Send(kMessageChannelResult, kChannelRefreshed, 1); };
  const auto told = [this] {
    const auto isOfA = [](const std::string& text) { return text.find('A') != text.npos; };
    EXPECT_TRUE(WaitUntil([&] { return std::ranges::any_of(texts_, isOfA); }));
  };
  const auto endRun = [this] { Send(kMessageChannelResult, kRunEnded); };
  const std::tuple<std::vector<std::function<void()>>, int, const char*> steps[] = {
      {{begin}, 0, "F A B C "},
      {{recount}, 2, "F(2) A(2)* B C "},
      {{end, told}, 3, "F(3) A(3)* B C "},
      {{recount}, 3, "F(4) A(4)* B C "},              // no worker has the channel now
      {{begin, endRun}, 4, "F(5) A(5)* B C "},        // stopped with the run
      {{begin, end, recount}, 5, "F(6) A(6)* B C "},  // before the batch is counted
      {{endRun, begin}, 6, "F(7) A(7) B C "},         // another program's
      {{begin}, 7, "F(8) A(8)* B C "}};               // stopped
  for (const auto& [acts, total, rows] : steps) {
    AddPosts(1, 1);
    for (const auto& act : acts) act();
    EXPECT_TRUE(Become(rows));
    EXPECT_EQ(UnreadTotal(), total);
  }
}

TEST_F(Arrivals, InAFolderOnDisplayAreListedWithoutMovingTheUser) {
  AddPosts(2, 60);
  CreateFrame();
  Select("F(60)");
  const auto row = List().model()->index(30, 1);
  List().scrollTo(row, QAbstractItemView::PositionAtTop);
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualRect(row).center());
  const QString post = row.data().toString();
  const int line = List().visualRect(row).top();
  QSignalSpy fills(List().model(), &QAbstractItemModel::modelReset);
  for (int round = 0; round < 2; ++round) {  // nothing is new in the second one
    Refresh({1, 2, 3});
    EXPECT_EQ(fills.size(), round == 0 ? 0 : 1);
    if (round == 0) {
      for (const int channel : {1, 3}) AddPosts(channel, 2);
      Refresh({1, 3});
    }
    EXPECT_EQ(fills.size(), 1);
    EXPECT_EQ(Titles().size(), 64);
    EXPECT_EQ(List().currentIndex().data(), post);
    EXPECT_EQ(List().visualRect(List().currentIndex()).top(), line);
  }
}

TEST_F(Arrivals, FromOtherProgramsShowUpWhenTheUserComesBackAndAreNotAnnounced) {
  for (const int channel : {1, 2, 3}) AddPosts(channel, 2);
  CreateFrame();
  Select("B(2)");
  EXPECT_TRUE(Become("F(5) A(2) B(1) C(2) "));
  QSignalSpy resets(Tree().model(), &QAbstractItemModel::modelReset);
  const int unannounced = UnreadTotal() - The<Desk>().State().announcedTotal;
  InsertChannel(store_, "D", "D", "", AddFolder(store_, "G", 5), 1);
  AddPosts(4, 1);
  AddPosts(2, 1);
  DeleteChannel(store_, 1);
  MarkChannelsRead(store_, 1, std::vector{3});
  answers_.Next([this](QDialog& panel) {
    QEvent active(QEvent::WindowActivate);
    QCoreApplication::sendEvent(host_.get(), &active);
    Refresh({});
    EXPECT_EQ(Rows(), "F(5) A(2) B(1) C(2) ") << "nothing moves under a question";
    panel.reject();
  });
  Send(kMessageOpenPanel);
  ComeBack();
  EXPECT_TRUE(Become("F(2) B(2) C G(1) D(1) "));
  EXPECT_TRUE(WaitUntil([this] { return Titles().size() == 3; }));
  EXPECT_EQ(Tree().currentIndex().data(), "B(2)");
  EXPECT_EQ(UnreadTotal() - The<Desk>().State().announcedTotal, unannounced);
  EXPECT_EQ(resets.size(), 0);
  DeleteChannel(store_, 2);
  Send(kMessageChannelResult, kRunEnded);
  EXPECT_TRUE(Become("F C G(1) D(1) "));
  EXPECT_EQ(Titles(), QStringList());
  EXPECT_FALSE(Tree().selectionModel()->hasSelection());
}

}  // namespace
}  // namespace feedloom
