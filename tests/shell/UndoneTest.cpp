// A deletion or a marking that the user takes back.
#include "shell/ModuleFixture.h"
#include "store/ChannelAdder.h"
#include "store/Posts.h"

namespace feedloom {
namespace {

// The folder F has the channels A, B and C, with 2, 3 and 0 posts.
struct UndoneStep : ModuleFixture {
  UndoneStep() {
    Sql("update TB_FOLDER set folder_name = 'F', folder_order = 1");
    Sql("update TB_CHANNEL set channel_title = 'A'");
    for (const char* const title : {"B", "C"}) InsertChannel(store_, title, title, "", 1, 1);
    Sql("update TB_CHANNEL set channel_order = channel_id");
    AddPosts(1, 2);
    AddPosts(2, 3);
    CreateFrame();
  }
  bool eventFilter(QObject* window, QEvent* event) override {
    if (!ModuleFixture::eventFilter(window, event)) return false;
    const auto* const message = static_cast<WindowMessage*>(event);
    if (message->number == kMessageUndoOffered)
      offer_ = CodePage::Korean().ToUtf8(*reinterpret_cast<const std::string*>(message->lParam));
    return true;
  }
  // Whether the latest offer was `name`, and what undoes it leaves the tree as it was.
  void ComesBack(const std::string& name, const QStringList& before) {
    EXPECT_NE(Labels().join("|").toStdString(), before.join("|").toStdString());
    EXPECT_EQ(offer_, name);
    Press("Ctrl+Z, Ctrl+Z");
    EXPECT_EQ(Labels().join("|").toStdString(), before.join("|").toStdString());
    EXPECT_EQ(offer_, "");
    EXPECT_NE(texts_.back().find(name), std::string::npos);
  }
  void Delete() {
    answers_.Next([](QDialog& question) { question.accept(); });
    Press("Delete");
  }
  int Unannounced() { return UnreadTotal() - The<Desk>().State().announcedTotal; }

  std::string offer_;
};

TEST_F(UndoneStep, BringsARowOfTheTreeBackToItsPlaceUnreadAndUnannounced) {
  Select("B(3)");
  const QStringList before = Labels();
  const auto titles = Titles();
  const int unannounced = Unannounced();
  Delete();
  ComesBack("채널 삭제: B", before);
  EXPECT_EQ(Tree().currentIndex().data(), "B(2)");
  EXPECT_EQ(Titles(), titles);
  EXPECT_EQ(Unannounced(), unannounced);
  Sql("insert into TB_FOLDER(folder_name, folder_order) values('G', 9)");
  Send(kMessageChannelResult, kRunEnded);
  EXPECT_TRUE(WaitUntil([this] { return Labels().contains("G"); }));
  Select("F(4)");
  Tree().collapse(Tree().currentIndex());
  const QStringList closed = Labels();
  Delete();
  ComesBack("그룹 삭제: F", closed);
  Tree().expandAll();
  EXPECT_EQ(Labels().mid(1, 3), (QStringList{"  A(1)", "  B(2)", "  C"})) << "A is on display";
}

TEST_F(UndoneStep, BringsPostsBackAlsoAfterARefreshAndNotAfterANewStart) {
  Select("A(2)");
  const QStringList before = Labels();
  Press("F6, Ctrl+A");
  Delete();
  EXPECT_EQ(Titles(), QStringList());
  Refresh({1});
  ComesBack("글 2개 삭제", before);
  EXPECT_EQ(Titles().size(), 2);
  Press("Ctrl+A");
  Delete();
  EXPECT_EQ(Sql("select count(*) from TB_UNDO_POST"), "2");
  Destroy();
  host_.reset();
  CreateFrame();
  Press("Ctrl+Z");
  EXPECT_EQ(Sql("select count(*) from TB_UNDO_POST"), "0");
  EXPECT_EQ(Sql("select count(*) from TB_POST where post_channelID = 1"), "0");
}

TEST_F(UndoneStep, BringsPostsBackIntoTheListOfASearchThatLostThem) {
  const auto search = [this] {
    PostList found{.posts = {}, .areSearchResults = true};
    FindPosts(store_, std::vector{1, 2, 3}, false, found.posts);
    The<Reading>().ListPosts(ListMode::Selection, std::move(found));
    frame_->setFocus();
    Press("F6");
  };
  search();
  const QStringList titles = Titles();
  Delete();
  EXPECT_EQ(Titles().size(), 2);
  Press("Ctrl+Z");
  EXPECT_EQ(Titles(), titles);
  Press("Ctrl+A");
  Delete();
  search();
  EXPECT_EQ(Titles(), QStringList());
  Press("Ctrl+Z");
  EXPECT_EQ(Titles(), QStringList()) << "which another search has filled";
  EXPECT_EQ(Sql("select count(*) from TB_POST"), "5");
}

}  // namespace
}  // namespace feedloom
