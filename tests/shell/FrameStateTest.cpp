// The counters behind the frame, which no host sees.
#include <gtest/gtest.h>

#include <QLabel>
#include <QWidget>
#include <filesystem>

#include "kit/TestProfile.h"
#include "platform/Messages.h"
#include "shell/CRSS_MainFrame.h"
#include "skin/Keys.h"
#include "store/Connection.h"
#include "store/Posts.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/notice/CRSS_AnnounceDlg.h"

namespace feedloom {
namespace {

class FrameState : public testing::Test {
 protected:
  static void SetUpTestSuite() { PrepareBrowser(); }

  void CreateFrame() {
    const ModulePaths paths{profile_.Paths().module, profile_.Paths().registry};
    frame_ = std::make_unique<CRSS_MainFrame>(profile_.Lookup(), paths, &host_);
  }

  void AddPosts(std::initializer_list<const char*> links) {
    Store store(profile_.Paths().database, CodePage::Korean(), SystemClock(), [](auto) {});
    ChannelRecord record;
    record.id = 1;
    for (const char* link : links) record.posts.emplace_back().link = link;
    Connection connection(store);
    InsertChannelPosts(connection, record);
  }

  SharedState& State() { return frame_->State(); }

  // What the announcement that is to be seen says.
  QStringList Announced() {
    QStringList texts;
    for (auto* const window : frame_->findChildren<CRSS_AnnounceDlg*>()) {
      if (!window->isVisible()) continue;
      for (auto* const label : window->findChildren<QLabel*>()) texts << label->text();
    }
    return texts;
  }

  TestProfile profile_;
  QWidget host_;
  std::unique_ptr<CRSS_MainFrame> frame_;
};

TEST_F(FrameState, TheUnreadTotalBeginsWithTheStoresAndGrowsByWhatARefreshBrings) {
  AddPosts({"a", "b"});
  CreateFrame();
  EXPECT_EQ(State().unreadTotal, 2);
  EXPECT_EQ(State().announcedTotal, 2);
  AddPosts({"c", "d", "e"});
  frame_->OnMessage(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(State().unreadTotal, 5);
  EXPECT_EQ(State().announcedTotal, 2);
  frame_->OnMessage(kMessageChannelResult, kDownloadFailed, 1);
  EXPECT_EQ(State().unreadTotal, 5);
}

TEST_F(FrameState, PostsThatAreCountedWhileTheirWorkerRunsAreCountedOnce) {
  AddPosts({"a"});
  CreateFrame();
  frame_->OnMessage(kMessageChannelWorker, 1, 0);
  AddPosts({"b", "c"});
  frame_->RecountUnread(false);
  EXPECT_EQ(State().unreadTotal, 3);
  AddPosts({"d"});
  frame_->OnMessage(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(State().unreadTotal, 4);
  AddPosts({"e"});
  frame_->RecountUnread(false);  // no worker has it any more
  EXPECT_EQ(State().unreadTotal, 4);
}

TEST_F(FrameState, AStoreThatCannotBeReadGivesTheFailureValue) {
  std::filesystem::remove(profile_.Paths().database);
  std::filesystem::create_directory(profile_.Paths().database);
  CreateFrame();
  EXPECT_EQ(State().unreadTotal, -1);
  EXPECT_EQ(State().announcedTotal, -1);
}

TEST_F(FrameState, AnAnnouncementThatIsAskedForSaysWhateverThereIsAndNeverLessThanNothing) {
  AddPosts({"a", "b"});
  CreateFrame();
  frame_->NotifyOfNewPosts();
  EXPECT_EQ(Announced(), QStringList());
  frame_->ShowNewPostNotification();
  EXPECT_TRUE(Announced().contains("0 개"));
  State().unreadTotal = 1;  // a post was read
  frame_->ShowNewPostNotification();
  EXPECT_TRUE(Announced().contains("0 개"));
  State().unreadTotal = 3;
  frame_->ShowNewPostNotification();
  EXPECT_TRUE(Announced().contains("2 개"));
  EXPECT_EQ(Announced().size(), 2);  // one window, with its caption
  EXPECT_EQ(State().announcedTotal, 3);
}

TEST_F(FrameState, AppliedSettingsAreLiveWithTheirModesAsFlags) {
  CreateFrame();
  const Settings chosen{.newFeedMode = 5,
                        .newFeedDuration = 2,
                        .newFeedMsgTransparency = 40,
                        .previewMode = 7,
                        .feedDeleteMode = 9,
                        .feedDeleteDate = 30};
  frame_->ApplyPanelSettings(chosen);
  const Settings live{.newFeedMode = 1,
                      .newFeedDuration = 2,
                      .newFeedMsgTransparency = 40,
                      .previewMode = 1,
                      .feedDeleteMode = 1,
                      .feedDeleteDate = 30};
  EXPECT_EQ(State().liveSettings, live);
}

TEST_F(FrameState, LiveSettingsBeginAtZeroWhateverIsStored) {
  EXPECT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, "NewFeedModeStr", "1"));
  EXPECT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, "PreviewModeStr", "1"));
  CreateFrame();
  EXPECT_EQ(State().liveSettings, Settings());
}

}  // namespace
}  // namespace feedloom
