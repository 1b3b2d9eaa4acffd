// The dialogs that are fields and buttons. What a feed's check and an import end with comes from
// the test, everything else is real.
#include <QProgressBar>

#include "ingest/FeedCheckAnswer.h"
#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Folders.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/dialogs/DialogRules.h"

namespace feedloom {
namespace {

using Answer = std::optional<std::string>;
const FeedCheckAnswer kFeed{.isFeed = true, .title = "A &amp; \nB", .homePage = "http://home/"};
const FeedCheckAnswer kPage{.announcedFeed = "http://home/rss"};
constexpr char kNoChange[] =
    "create trigger no before update on TB_CHANNEL begin select raise(abort, ''); end";

class FormDialogs : public DialogFixture {
 protected:
  Answer NewGroup() {
    ShowGroupAdd(frame, parent.get());
    for (const FolderRow& row : frame.addedFolders) return row.name + std::to_string(row.order);
    return {};
  }
  Answer NewCabinet() {
    ShowCabinetAdd(frame, parent.get());
    for (const auto& row : frame.addedCabinets) return row.title + std::to_string(row.order);
    return {};
  }
  void Add(Deed deed, const std::string& folder, const char* address) {
    WhenShown(std::move(deed));
    ShowChannelAdd(frame, parent.get(), folder, address);
  }
  Keys Check(const FeedCheckAnswer& answer) {
    Click("주소 확인");
    std::function(frame.answerCheck)(answer);
    return Messages();
  }
  Keys Choose(const QString& folder) { return List().setCurrentText(folder), Click(); }
  Keys ChooseWhileLocked(const QString& folder) {
    const ForeignLock lock(frame.db.DbPath());
    return Choose(folder);
  }

  int news_ = AddFolder(frame.GetStore(), "News", 4);
  int daily_ = frame.db.AddChannelWithPosts(news_, "Daily", 1);
  int keep_ = AddCabinet(frame.GetStore(), "Keep", 7);
  const ChannelFacts channel_{daily_, Korean("똠방각하"), "http://example.com/Daily", news_,
                              "News"};
};

TEST_F(FormDialogs, QuestionsArePutAgainUntilTheAnswerWillDo) {
  const auto ask = [&](int question) -> Answer {
    if (question == 0) return NewGroup();
    if (question == 1) return NewCabinet();
    if (question == 2) return AskGroupName(frame, parent.get(), "&lt;b");
    if (question == 3) return AskChannelName(frame, parent.get(), channel_);
    if (question == 4) return AskCabinetName(frame, parent.get(), "Old");
    return question == 5 ? AskSearchWord(frame, parent.get()) : AskListAddress(frame, parent.get());
  };
  // What is entered before the answer, separated by slashes: E for an empty text, T for a taken
  // one.
  const struct {
    const char *look, *empty, *taken, *tries, *messages, *answer;
  } questions[] = {
      {"그룹; >그룹 이름=", kTextGroupEmpty, kTextGroupDuplicate,
       "/ \u200B/보관함/News/ Tom &amp; Jerry's (%s) ", "EETT", "Tom & Jerry's (%s)5"},
      {"보관함 추가; >보관함 이름=", kTextCabinetEmpty, kTextCabinetDuplicate,
       "/보관함/Keep/It's &lt;", "ETT", "It's <8"},
      {"그룹 이름 변경; >새 그룹 이름=&lt;b", kTextGroupEmpty, kTextGroupDuplicate,
       "&lt;b//News/Press", "TET", "Press"},
      {"채널 이름 변경; >새 채널 이름=똠방각하", kTextGroupEmpty, kTextRenameDuplicate,
       " /Daily/보관함", "ET", "보관함"},
      {"보관함 이름 변경; >새 보관함 이름=Old", kTextGroupEmpty, kTextRenameDuplicate,
       "/Keep/보관함/Daily", "ETT", "Daily"},
      {"검색; >검색어=", kTextSearchEmpty, "", "/ 똠방각하 ", "E", " 똠방각하 "},
      {"OPML 가져오기; >OPML 주소=", kTextOpmlEmpty, "", "/ \u3000/ x.example ", "EE",
       "http://x.example"},
  };
  for (int i = 0; i < 7; ++i) {
    const auto& [look, empty, taken, tries, messages, answer] = questions[i];
    SCOPED_TRACE(look);
    WhenShown([&] { parent.reset(); });
    EXPECT_EQ(ask(i), std::nullopt);
    parent = std::make_unique<QWidget>();
    WhenShown([&, look = look] {
      EXPECT_EQ(Look(*dialog), std::string(look) + "; 확인; 취소");
      Click("취소");
    });
    EXPECT_EQ(ask(i), std::nullopt);
    std::string shown;
    WhenShown([&, tries = tries, empty = empty, taken = taken] {
      for (const QString& text : QString(tries).split('/')) {
        for (const std::string& key : Try(text))
          shown += key == empty ? 'E' : key == taken ? 'T' : '?';
      }
    });
    EXPECT_EQ(ask(i), Korean(answer));
    EXPECT_EQ(shown, messages);
  }
  EXPECT_EQ(frame.db.Value("select group_concat(folder_name || folder_order) from TB_FOLDER"),
            "News4,Tom & Jerry's (%s)5");
}

TEST_F(FormDialogs, ACabinetIsChosenFromAllInTheirOrder) {
  const auto choose = [&](const std::string& cabinets, const std::vector<Qt::Key>& keys) {
    WhenShown([&] {
      EXPECT_EQ(Look(*dialog), "스크랩; >보관함 선택=" + cabinets + "; 확인; 취소");
      for (const Qt::Key key : keys) Press(key);
    });
    return ChooseCabinet(frame, parent.get());
  };
  EXPECT_EQ(choose("Keep|Keep", {Qt::Key_Return}), keep_);
  const int recipes = AddCabinet(frame.GetStore(), Korean("요리"), 3);
  EXPECT_EQ(choose("|요리|Keep", {Qt::Key_Return, Qt::Key_Down, Qt::Key_Return}), recipes);
  EXPECT_EQ(choose("|요리|Keep", {Qt::Key_Down, Qt::Key_Escape}), std::nullopt);
  frame.db.Sql("delete from TB_SCRAP_CHANNEL");
  WhenShown([&] { EXPECT_EQ(Click(), Keys{kTextScrapEmpty}); });
  EXPECT_EQ(ChooseCabinet(frame, parent.get()), std::nullopt);
  WhenShown([&] { Try("Box"); });
  EXPECT_EQ(NewCabinet(), "Box1");
}

TEST_F(FormDialogs, ANameThatCannotBeStoredIsReported) {
  WhenShown([&] {  // another program takes the name at the last moment
    QObject::connect(dialog, &QDialog::finished, [&] { AddCabinet(frame.GetStore(), "Box", 9); });
    Try("Box");
  });
  EXPECT_EQ(NewCabinet(), std::nullopt);
  EXPECT_EQ(Messages(), Keys{kTextCabinetDuplicate});
  frame.db.Sql("drop table TB_SCRAP_POST; drop table TB_FOLDER");
  WhenShown([&] { Try("Shelf"); });
  EXPECT_EQ(NewCabinet(), std::nullopt);
  EXPECT_EQ(Messages(), Keys{kTextCabinetError});
  WhenShown([&] { EXPECT_EQ(Try("Group"), Keys{kTextGroupError}); });
  EXPECT_EQ(NewGroup(), std::nullopt);
  const auto isTaken = [](const std::string&) { return false; };  // but it would be stored as R&D
  EXPECT_EQ(CheckName(kGroupNameRule, "R&amp;D", "R&D", isTaken), kTextGroupDuplicate);
}

TEST_F(FormDialogs, AFeedIsCheckedAndThenStoredShownAndRefreshed) {
  AddFolder(frame.GetStore(), Korean("운동"), 5);
  const auto add = [&] {
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; >채널 주소=; 취소");
    EXPECT_EQ(Try(" ", "주소 확인"), Keys{kTextAddChannelEmpty});
    Try(" daily/a b ", "주소 확인");
    EXPECT_EQ(Look(*dialog), "채널 추가; >주소를 확인하고 있습니다.; 취소");
    EXPECT_NE(dialog->findChild<QProgressBar*>()->toolTip(), "");
    ExpectFitForUse(*dialog);
    Press(Qt::Key_Return);  // once too often
    frame.answerCheck({});
    EXPECT_EQ(Messages(), Keys{kTextAddChannelCheckError});
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; >채널 주소=http://daily/a%20b; 취소");
    Box().setText("http://example.com/Daily");
    Press(Qt::Key_Return);  // checks
    EXPECT_EQ(frame.checkedAddresses, (Keys{"http://daily/a%20b", "http://example.com/Daily"}));
    frame.answerCheck(kFeed);
    EXPECT_EQ(
        Look(*dialog),
        "채널 추가; 주소 확인; 채널 주소=http://example.com/Daily; >채널 이름=A & B; 그룹 추가; "
        "그룹 선택=운동|News|운동; 확인; 취소");
    ExpectFitForUse(*dialog);
    EXPECT_EQ(Try(" "), Keys{kTextAddChannelEmpty});
    EXPECT_EQ(Box(1).text(), " ");
    Box(1).setText("Mine");
    EXPECT_EQ(ChooseWhileLocked("News"), Keys{kTextAddChannelError});
    EXPECT_EQ(Choose("News"), Keys{kTextAddChannelDuplicate});
    Box().setText("http://other/");
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; 채널 주소=http://other/; >취소");
    Check(kFeed);
    List().setCurrentText("운동");
    Press(Qt::Key_Return);  // adds
  };
  Add(add, Korean("운동"), "file:///etc/hostname");
  const ChannelRow& row = frame.addedChannels.at(0);
  EXPECT_EQ(std::tuple(row.title, row.folderId, row.order), std::tuple("A & B", news_ + 1, 1));
  EXPECT_EQ(frame.db.Value("select channel_title || channel_type || channel_xmllink || "
                           "channel_htmllink from TB_CHANNEL where channel_folderID = 2"),
            "A & Brsshttp://other/http://home/");
  EXPECT_TRUE(frame.queue.Contains(row.id) && frame.refreshes == 1);
}

TEST_F(FormDialogs, AWebPageOffersItsFeedAndAFolderCanBeAddedOnTheWay) {
  const auto addFolder = [&](Qt::Key key) {
    WhenShown([&, key] {
      Box().setText("New");
      Press(key);
    });
    Click("그룹 추가");
    EXPECT_TRUE(dialog->focusWidget() == &List() && List().currentText() == "New" &&
                List().count() == 2);
  };
  const auto add = [&] {
    EXPECT_EQ(Check(kPage), Keys{kTextAddChannelAnnounced});  // declined
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; >채널 주소=http://page/; 취소");
    frame.nextAnswer = MsgBoxAnswer::Consented;
    Check(kPage);
    frame.answerCheck({.isFeed = true});
    EXPECT_EQ(
        Look(*dialog),
        "채널 추가; 주소 확인; 채널 주소=http://home/rss; >채널 이름=http://home/rss; 그룹 추가; "
        "그룹 선택=News|News; 확인; 취소");
    addFolder(Qt::Key_Return);
    addFolder(Qt::Key_Escape);
    DeleteFolder(frame.GetStore(), frame.addedFolders.at(0).id);
    Messages();
    EXPECT_EQ(Click(), Keys{kTextMoveEmpty});
    EXPECT_TRUE(dialog->focusWidget() == &List() && List().count() == 1);
    WhenShown([&] { parent.reset(); });
    Click("그룹 추가");
  };
  Add(add, "Gone", "page/");
  parent = std::make_unique<QWidget>();
  frame.whileAsking = [&] { parent.reset(); };
  Add([&] { Check(kPage); }, "", "http://page/");
}

TEST_F(FormDialogs, CancelEndsTheCheckAndALateAnswerIsDropped) {
  std::function<void(const FeedCheckAnswer&)> late;
  const auto cancel = [&] {
    Click("주소 확인");
    late = frame.answerCheck;
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible() || frame.answerCheck);
  };
  Add(cancel, "", "http://page/");
  late(kFeed);
}

TEST_F(FormDialogs, AChannelGoesToAFolderThatHasNotItsAddress) {
  const int gone = AddFolder(frame.GetStore(), "Gone", 6);
  AddFolder(frame.GetStore(), Korean("운동"), 5);
  WhenShown([&] {
    EXPECT_EQ(Look(*dialog), "그룹; >그룹 선택=|News|운동|Gone; 확인; 취소");
    EXPECT_EQ(Choose("News"), Keys{kTextAddChannelDuplicate});
    DeleteFolder(frame.GetStore(), gone);
    EXPECT_EQ(Choose("Gone"), Keys{kTextMoveEmpty});
    EXPECT_EQ(Look(*dialog), "그룹; >그룹 선택=|News|운동; 확인; 취소");
    EXPECT_EQ(ChooseWhileLocked("운동"), Keys{kTextMoveError});
    frame.db.Sql(kNoChange);
    EXPECT_EQ(Click(), Keys{kTextMoveError});
    frame.db.Sql("drop trigger no");
    Press(Qt::Key_Return);
  });
  ShowChannelMove(frame, parent.get(), channel_);
  EXPECT_EQ(frame.moves, (std::vector<std::pair<int, int>>{{daily_, gone + 1}}));
  EXPECT_EQ(frame.db.Count("TB_CHANNEL where channel_folderID = 3"), 1);
}

TEST_F(FormDialogs, AChannelsInformationIsShownWholeAndCannotBeChanged) {
  const std::string title(1'000, 'x');
  WhenShown([&] {
    EXPECT_EQ(Look(*dialog),
              "채널 정보; >채널: " + title + "; 주소: http://x; 그룹 이름: 운동; 확인");
    EXPECT_EQ(Box(1).cursorPosition(), 0);
    EXPECT_LT(dialog->width(), 600);
    Press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
  });
  ShowChannelInfo(frame, parent.get(), {1, title, "http://x", 1, Korean("운동")});
}

TEST_F(FormDialogs, ListsGoToTheHandsetAndBackAndTheHostHearsOfIt) {
  frame.skin.SetHostValue(kValueWorkDir, frame.workFolder.Path());
  const struct {
    std::optional<int> sent;
    std::optional<ImportSums> received;
    const char* text;
  } ends[] = {
      {{}, {}, "핸드셋으로 보낼 목록을 저장하지 못했습니다."},
      {12, {}, "핸드셋과 동기화했습니다: 보낸 채널 12, 받은 채널 0"},
      {7, ImportSums{.added = 5, .present = 2},
       "핸드셋과 동기화했습니다: 보낸 채널 7, 받은 채널 5"},
      {3, {}, "채널 3개를 핸드셋에 보냈지만, 핸드셋이 남긴 목록은 가져오지 못했습니다."},
  };
  const std::string look = "핸드셋과 동기화; >연결된 핸드셋: ";
  WhenShown([&] { EXPECT_EQ(Look(*dialog), look + "연결된 핸드셋이 없습니다.; 닫기"); });
  ShowSync(frame, parent.get());
  frame.skin.SetHostValue(kValueModelName, "H3");
  WhenShown([&] {
    EXPECT_EQ(Look(*dialog), look +
                                 "H3; 채널 목록을 핸드셋에 보내고,\r\n핸드셋이 남긴 목록의 채널을 "
                                 "추가합니다.; 동기화; 닫기");
    EXPECT_EQ(frame.exports, Keys{});
    for (const auto& [sent, received, text] : ends) {
      frame.nextExport = sent;
      Press(Qt::Key_Return);
      if (frame.exports.size() > 2) {
        EXPECT_EQ(Look(*dialog), look + "H3; 동기화하는 중입니다.; 닫기");
        Press(Qt::Key_Return);  // once too often
        frame.endMerge(received);
      }
      EXPECT_EQ(Look(*dialog), look + "H3; " + text + "; 동기화; 닫기");
      EXPECT_EQ(Box().accessibleDescription(), text);
      EXPECT_TRUE(!sent || frame.messages.back() == Korean(text));
      frame.workFolder.Write(sent ? "Skyfold_ppc.opml" : "other", "<opml/>");
    }
    Click("동기화");
    Click("닫기");
    EXPECT_FALSE(dialog->isVisible());
  });
  ShowSync(frame, parent.get());
  EXPECT_EQ(frame.exports, Keys(5, frame.workFolder.File("Skyfold_pc.opml")));
  EXPECT_EQ(frame.merges, Keys(3, frame.workFolder.File("Skyfold_ppc.opml")));
  frame.endMerge(ImportSums{.added = 2});  // after the dialog was closed
  EXPECT_EQ(frame.messages.size(), 4U);
}

}  // namespace
}  // namespace feedloom
