// The dialog that adds a channel, with a real store.

#include "check/FeedCheckAnswer.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {

const FeedCheckAnswer kFeed{.isFeed = true, .title = "A &amp; \nB", .homePage = "http://home/"};
const FeedCheckAnswer kPage{.announcedFeed = "http://home/rss"};

TEST_F(Dialogs, AFeedIsCheckedAndThenStoredShownAndRefreshed) {
  Add(AddFolder(frame.GetStore(), Korean("운동"), 5), "file:///etc/hostname", [&] {
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; >채널 주소=; 취소");
    EXPECT_EQ(Try(" ", "주소 확인"), Keys{kTextAddChannelEmpty});
    Try(" daily/a b ", "주소 확인");
    EXPECT_EQ(Look(*dialog), "채널 추가; >주소를 확인하고 있습니다.; 취소");
    const auto& busy = *dialog->findChild<QProgressBar*>();
    EXPECT_TRUE(busy.maximum() == 0 && !busy.isTextVisible());
    EXPECT_EQ(busy.geometry(), busy.parentWidget()->rect()) << "nothing moves when it comes";
    Press(Qt::Key_Return);  // once too often
    frame.answerCheck({});
    EXPECT_EQ(Messages(), Keys{kTextAddChannelCheckError});
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; >채널 주소=http://daily/a%20b; 취소");
    Box().setText("http://example.com/Daily");
    Press(Qt::Key_Return);  // checks
    EXPECT_EQ(frame.checked, (Keys{"http://daily/a%20b", "http://example.com/Daily"}));
    frame.answerCheck(kFeed);
    EXPECT_EQ(
        Look(*dialog),
        "채널 추가; 주소 확인; 채널 주소=http://example.com/Daily; >채널 이름=A & B; 그룹 추가; "
        "그룹 선택=운동|News|운동; 확인; 취소");
    EXPECT_EQ(Try(" "), Keys{kTextAddChannelEmpty});
    EXPECT_EQ(dialog->focusWidget(), &Box(1));
    Box(1).setText("Mine");
    EXPECT_EQ(ChooseWhileLocked("News"), Keys{kTextAddChannelError});
    EXPECT_EQ(Choose("News"), Keys{kTextAddChannelDuplicate});
    EXPECT_EQ(dialog->focusWidget(), &List());
    Box().setText("http://other/");
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; 채널 주소=http://other/; >취소");
    Check(kFeed);
    List().setCurrentText("운동");
    Press(Qt::Key_Return);  // adds
  });
  EXPECT_EQ(frame.addedChannels.at(0).folderId, news_ + 1);
  EXPECT_EQ(frame.db.Value("select channel_title || channel_type || channel_xmllink || "
                           "channel_htmllink from TB_CHANNEL where channel_folderID = 2"),
            "A & Brsshttp://other/http://home/");
  EXPECT_TRUE(frame.queue.Contains(frame.addedChannels[0].id) && frame.refreshes == 1);
}

TEST_F(Dialogs, AServerThatWantsALoginIsNamedAndTheAddressCheckedAgainWithIt) {
  const FeedCheckAnswer wanted{.loginServer = "https://h"};
  const std::string look = "로그인; 서버: https://h; ";
  Add(news_, "https://x:secret@h/feed", [&] {
    WhenShown([&] {
      EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == dialog; }));
      EXPECT_EQ(Look(*dialog), look + ">이름=; 비밀번호=; 확인; 취소");
      QTest::keyClicks(dialog->focusWidget(), "me");
      Press(Qt::Key_Tab);
      EXPECT_EQ(Box(2).echoMode(), QLineEdit::Password);
      Try("한글");
    });
    EXPECT_EQ(Check(wanted), Keys{});
    WhenShown([&] {
      EXPECT_EQ(Messages(), Keys{kTextLoginRefused});
      EXPECT_EQ(Look(*dialog), look + "이름=me; >비밀번호=; 확인; 취소");
      Try("pw");
    });
    std::function(frame.answerCheck)(wanted);
    EXPECT_EQ(frame.given, (Keys{"https://h me한글", "https://h mepw"}));
    WhenShown([&] { Press(Qt::Key_Escape); });
    std::function(frame.answerCheck)(wanted);
    EXPECT_EQ(Messages(), Keys{kTextAddChannelCheckError});
    EXPECT_EQ(Check({.isFeed = true, .loginIsLost = true}), Keys{kTextLoginNotKept});
    EXPECT_EQ(Box(1).text(), "https://h/feed") << "a title without the password";
    WhenShown([&] { parent.reset(); });
    Check(wanted);
  });
}

TEST_F(Dialogs, AnAnnouncedAddressThatIsNoFeedIsReadAsTheBrowserReadsIt) {
  frame.state.discoveredFeeds = {{"Feed", "http://h/x.xml", "http://h:8080/x.xml"}};
  for (const bool isEdited : {false, true}) {
    Add(news_, "http://h/x.xml", [&] {
      if (isEdited) QTest::keyClicks(&Box(), "2");
      EXPECT_EQ(Check({}), isEdited ? Keys{kTextAddChannelCheckError} : Keys{});
      if (isEdited) return;
      EXPECT_EQ(frame.checked.back(), "http://h:8080/x.xml");
      std::function(frame.answerCheck)({});
      EXPECT_EQ(Messages(), Keys{kTextAddChannelCheckError});
    });
  }
}

TEST_F(Dialogs, AHelpfulOneSaysWhyAnAddressIsNoFeed) {
  const FeedCheckAnswer refused{.fault = {FeedFaultKind::OpmlList}};
  Add(news_, "http://h/", [&] { EXPECT_EQ(Check(refused), Keys{kTextAddChannelCheckError}); });
  frame.skin.SetHostValue(kValueDialogs, kDialogsHelpful);
  Add(news_, "http://h/", [&] {
    EXPECT_EQ(Check(refused), Keys{kTextAddChannelNoFeed});
    EXPECT_EQ(frame.askedMore, Korean("피드가 아니라 구독 목록(OPML)입니다"));
    EXPECT_TRUE(Box().hasFocus());
    EXPECT_EQ(Check({}), Keys{kTextAddChannelCheckError}) << "no reason is known";
  });
}

TEST_F(Dialogs, AWebPageOffersItsFeedAndAFolderCanBeAddedOnTheWay) {
  Add(99, "page/", [&] {
    EXPECT_EQ(Check(kPage), Keys{kTextAddChannelAnnounced});  // declined
    EXPECT_EQ(Look(*dialog), "채널 추가; 주소 확인; >채널 주소=http://page/; 취소");
    frame.nextAnswer = MsgBoxAnswer::Consented;
    Check(kPage);
    frame.answerCheck({.isFeed = true});
    EXPECT_EQ(Box().text() + " " + Box(1).text(), "http://home/rss http://home/rss");
    WhenShown([&] { Try("New"); });
    Click("그룹 추가");
    EXPECT_EQ(List().currentText(), "New");
    frame.db.Sql("delete from TB_FOLDER where folder_name = 'New'");
    EXPECT_EQ(Click(), Keys{kTextMoveEmpty});
    EXPECT_TRUE(dialog->focusWidget() == &List() && List().count() == 1);
    WhenShown([&] { parent.reset(); });
    Click("그룹 추가");
  });
  parent = std::make_unique<QWidget>();
  frame.whileAsking = [&] { parent.reset(); };
  Add(0, "http://page/", [&] { Check(kPage); });
}

TEST_F(Dialogs, CancelEndsTheCheckAndALateAnswerIsDropped) {
  std::function<void(const FeedCheckAnswer&)> late;
  Add(0, "http://page/", [&] {
    Click("주소 확인");
    late = frame.answerCheck;
    Press(Qt::Key_Escape);
  });
  EXPECT_FALSE(frame.answerCheck);
  late(kFeed);
}

}  // namespace feedloom
