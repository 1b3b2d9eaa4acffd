// What the window remembers when its host makes another frame, or the program starts again.
#include <QComboBox>

#include "kit/DirectoryService.h"
#include "shell/ModuleFixture.h"

namespace feedloom {

struct Memory : ModuleFixture {
  QString SelectedLabel() {
    const auto selected = Tree().selectionModel()->selectedIndexes();
    return selected.isEmpty() ? "" : selected[0].data().toString().section('(', 0, 0);
  }
  // Sizes and choices of the window, without its posts.
  std::string Look() {
    auto& rows = dynamic_cast<QSplitter&>(*Columns().widget(1));
    QHeaderView& header = *List().header();
    return fmt::format("{}x{} column {} scope {} zoom {} cabinets {}", Columns().sizes()[0],
                       rows.sizes()[0], header.sectionSize(1),
                       rows.widget(0)->findChild<QComboBox*>()->currentIndex(),
                       frame_->findChild<QWebEngineView*>()->zoomFactor(),
                       Tree().isExpanded(Tree().model()->index(1, 0)) ? "open" : "closed");
  }
  // The place in the tree and in the list.
  std::string Place() {
    const auto top = List().indexAt({0, 0});
    return fmt::format("{}: {} by {}, at {}, first {}", SelectedLabel().toStdString(),
                       Titles().size(), List().header()->sortIndicatorSection(),
                       List().currentIndex().siblingAtColumn(1).data().toString().toStdString(),
                       top.siblingAtColumn(1).data().toString().toStdString());
  }
  // A user's choices: the post 30 of 40, sorted by title, in a window of other sizes.
  void Choose() {
    AddPosts(1, 40);
    CreateFrame();
    Press("F8, Right, Right, F8, Down, Escape");
    List().setColumnWidth(1, 333);
    dynamic_cast<QSplitter&>(*Columns().widget(1)).findChild<QComboBox*>()->setCurrentIndex(1);
    Tree().collapse(Tree().model()->index(1, 0));
    Select("Feedloom 시작하기(40)");
    List().header()->setSortIndicator(1, Qt::AscendingOrder);
    const auto row = List().model()->match(List().model()->index(0, 1), Qt::DisplayRole, "Post 30");
    List().scrollTo(row[0], QAbstractItemView::PositionAtTop);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualRect(row[0]).center());
    EXPECT_TRUE(Shows("Text 30"));
    Press("F6, Ctrl++");
    EXPECT_TRUE(WaitUntil([this] { return Look().find("zoom 1.1") != std::string::npos; }));
  }
  // Into the toolbar of this name.
  void Type(const QString& toolbar, const QString& text) {
    auto* const box = frame_->findChild<QWidget*>(toolbar)->findChild<QLineEdit*>();
    box->setText(text);
    box->setFocus();
    Press("Return");
  }
  // A frame that could not read the store, as the last one of the process, keeps nothing.
  void StartAgain() {
    Destroy();
    const std::filesystem::path database = profile_.Paths().database;
    rename(database, database.string() + ".away");
    create_directory(database);
    CreateFrame();
    Destroy();
    remove(database);
    rename(database.string() + ".away", database);
    CreateFrame();
  }
  std::string Unread() { return Sql("select count(*) from TB_POST where post_readStatus = 0"); }
  void AskForLast() {
    ASSERT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueStart, kStartLast));
  }

  static constexpr char kLook[] = "283x216 column 333 scope 1 zoom 1.1 cabinets closed";
  static constexpr char kPlace[] = "Feedloom 시작하기: 40 by 1, at Post 30, first Post 30";
};

TEST_F(Memory, AFrameInPlaceOfAnotherShowsTheSameAndMarksNothingRead) {
  Choose();
  EXPECT_EQ(Look(), kLook);
  EXPECT_EQ(Place(), kPlace);
  Sql("update TB_POST set post_readStatus = 0 where post_title = 'Post 30'");
  const std::string unread = Unread();
  Destroy();
  CreateFrame();
  EXPECT_TRUE(Shows("Text 30"));
  EXPECT_EQ(Look(), kLook);
  EXPECT_EQ(Place(), kPlace);
  EXPECT_EQ(Unread(), unread);
}

TEST_F(Memory, ItKeepsASearchAndAWebPageWithItsPlaceToo) {
  server_.Serve("/tall", "<html><body style='height: 5000px'>Tall</body></html>", "text/html");
  Choose();
  Type("RSS_RightTopToolBar", "Post 2");
  const QStringList found = Titles();
  EXPECT_EQ(found.size(), 11);
  const auto page = [this] { return frame_->findChild<QWebEngineView*>()->page(); };
  Type("RSS_RightBottomToolBar", QString::fromStdString(server_.Url("/tall")));
  ASSERT_TRUE(Shows("Tall"));
  page()->runJavaScript("scrollTo(0, 1000)");
  ASSERT_TRUE(WaitUntil([&] { return page()->scrollPosition().y() > 900; }));
  const QPointF place = page()->scrollPosition();
  Destroy();
  CreateFrame();
  EXPECT_EQ(Titles(), found);
  EXPECT_TRUE(Shows("Tall"));
  EXPECT_TRUE(WaitUntil([&] { return page()->scrollPosition() == place; }));
}

TEST_F(Memory, ItKeepsThePlaceInResultsOfTheWebDirectory) {
  DirectoryService directory;
  directory.ServeTwoPages();
  lookup_.HostGetText = [&, texts = lookup_.HostGetText](const char* section, const char* key) {
    return key == std::string(kTextDirectoryService) ? directory.Address() : texts(section, key);
  };
  CreateFrame();
  Type("RSS_RightTopToolBar", "word");
  ASSERT_TRUE(Shows("About 1"));
  List().setFocus();
  Press("Down, Down, Return");
  ASSERT_TRUE(Shows("About 3"));
  Destroy();
  CreateFrame();
  EXPECT_TRUE(Shows("About 3"));
  EXPECT_EQ(Place(), ": 50 by -1, at Title 3, first Title 1");
  EXPECT_EQ(List().selectionModel()->selectedRows().size(), 1);
}

TEST_F(Memory, AStartShowsTheMainPageInTheOldSizesUnlessTheHostAsksForMore) {
  Choose();
  StartAgain();
  EXPECT_EQ(Look(), kLook);
  EXPECT_EQ(Place(), ": 0 by -1, at , first ");
  Destroy();
}

TEST_F(Memory, AStartAsTheLastShowsThePostAgainOrAFolderWithUnreadPostsWhenItIsGone) {
  AskForLast();
  Choose();
  const std::string unread = Unread();
  StartAgain();
  EXPECT_TRUE(Shows("Text 30"));
  EXPECT_EQ(Place(), kPlace);
  // The frame has nothing new to remember and leaves this.
  ASSERT_TRUE(profile_.TheRegistry().WriteString(kViewKey, kValueSelected, "2,99"));
  StartAgain();
  EXPECT_EQ(Place(), "기본 그룹: 40 by -1, at , first Post 1");
  EXPECT_EQ(Unread(), unread);
}

TEST_F(Memory, AnEmptyListSaysSoBesideAnEmptyPageIfTheHostWantsThat) {
  CreateFrame();
  const auto says = [this](const QString& text, bool isWritten) {
    return WaitUntil([&, this] {
      const QString page = frame_->findChild<QWebEngineView*>()->url().path();
      return List().accessibleDescription() == text && page.contains("/page:") == isWritten;
    });
  };
  Select("내 보관함");
  EXPECT_TRUE(says("", false));
  ASSERT_TRUE(profile_.TheRegistry().WriteString(kHostKey, kValueEmptyList, kEmptyListLine));
  Select("기본 그룹");
  EXPECT_TRUE(says("이 그룹에는 글이 없습니다.", true));
  Select("보관함");
  EXPECT_TRUE(says("보관함이 비어 있습니다.", true));
  AddPosts(1, 1);
  Select("Feedloom 시작하기");
  EXPECT_TRUE(Shows("Text 1") && says("", true));
  List().setFocus();
  answers_.Next([](QDialog& question) {
    for (auto* const button : question.findChildren<QAbstractButton*>())
      if (button->accessibleName() == "확인") button->click();
  });
  Press("Del");
  EXPECT_TRUE(Titles().isEmpty() && says("이 채널에는 글이 없습니다.", true));
}

TEST_F(Memory, OnlyUnreadPostsAreShownInTheNextFrameAndTheNextStartToo) {
  AskForLast();
  AddPosts(1, 3);
  Sql("update TB_POST set post_readStatus = 1 where post_title = 'Post 2'");
  CreateFrame();
  const auto turn = [this](std::intptr_t wParam) {
    WindowMessage message(kMessageShowUnreadOnly, wParam, 0);
    QCoreApplication::sendEvent(frame_, &message);
    return message.result;
  };
  EXPECT_EQ(turn(1) + 10 * turn(2) + 100 * turn(0), 11);
  EXPECT_EQ(numbers_, (std::vector<unsigned>(2, kMessageUnreadOnlyShown)));
  Select("Feedloom 시작하기(2)");
  const QStringList all = Titles();
  Press("U");
  EXPECT_EQ(turn(2), 1);
  for (const bool isNewStart : {false, true}) {
    EXPECT_EQ(Titles().size(), 2);
    EXPECT_EQ(Unread(), "1") << "the post that is read stays";
    EXPECT_EQ(Labels().join(' '), "기본 그룹(1)   Feedloom 시작하기(1) 보관함   내 보관함");
    isNewStart ? StartAgain() : (Destroy(), CreateFrame());
  }
  EXPECT_EQ(Titles().size(), 2);
  Press("U");
  EXPECT_EQ(Titles(), all);
}

}  // namespace feedloom
