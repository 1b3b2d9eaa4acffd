// The dialogs about folders, channels, cabinets, logins and files, with a real store.

#include "check/FeedCheckAnswer.h"
#include "store/Cabinets.h"
#include "store/Folders.h"
#include "threads/Messages.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {

const FeedCheckAnswer kFeed{.isFeed = true, .title = "A &amp; \nB", .homePage = "http://home/"};
const FeedCheckAnswer kPage{.announcedFeed = "http://home/rss"};

struct Dialogs : DialogFixture {
  void Add(int folder, const char* address, Action action) {
    WhenShown(std::move(action));
    ShowChannelAdd(frame, frame, frame, parent.get(), folder, address);
  }
  Keys Check(const FeedCheckAnswer& answer) {
    Click("주소 확인");
    std::function(frame.answerCheck)(answer);
    return Messages();
  }
  QComboBox& List() { return *dialog->findChild<QComboBox*>(); }
  Keys Choose(const QString& folder) { return List().setCurrentText(folder), Click(); }
  Keys ChooseWhileLocked(const QString& folder) {
    const ForeignLock lock(frame.db.DbPath());
    return Choose(folder);
  }

  int news_ = AddFolder(frame.GetStore(), "News", 4);
  int daily_ = frame.db.AddChannelWithPosts(news_, "Daily", 1);
  int keep_ = AddCabinet(frame.GetStore(), "Keep", 7);
  ChannelDetails channel_{{.id = daily_,
                           .folderId = news_,
                           .title = Korean("똠방각하"),
                           .xmlLink = "http://example.com/Daily"},
                          "News"};
};

TEST_F(Dialogs, QuestionsArePutAgainUntilTheAnswerWillDo) {
  const auto ask = [&](int question) -> std::optional<std::string> {
    if (question == 0) return ShowGroupAdd(frame, frame, parent.get()), "";
    if (question == 1) return ShowCabinetAdd(frame, frame, parent.get()), "";
    if (question == 2) return AskGroupName(frame, parent.get(), "&lt;b");
    if (question == 3) return AskChannelName(frame, parent.get(), channel_);
    if (question == 4) return AskCabinetName(frame, parent.get(), "Old");
    return question == 5 ? AskSearchWord(frame, parent.get()) : AskListAddress(frame, parent.get());
  };
  // What is entered before the answer, separated by slashes, brings E (empty) or T (taken).
  const struct {
    const char *look, *empty, *taken, *tries, *messages, *answer;
  } questions[] = {
      {"그룹; >그룹 이름=", kTextGroupEmpty, kTextGroupDuplicate,
       "/ \u200B/보관함/News/ Tom &amp; Jerry's (%s) ", "EETT", ""},
      {"보관함 추가; >보관함 이름=", kTextCabinetEmpty, kTextCabinetDuplicate,
       "/보관함/Keep/It's &lt;", "ETT", ""},
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
    const auto& question = questions[i];
    SCOPED_TRACE(question.look);
    std::string shown;
    WhenShown([&] {
      EXPECT_EQ(Look(*dialog), std::string(question.look) + "; 확인; 취소");
      for (const QString& text : QString(question.tries).split('/')) {
        for (const auto& key : Try(text))
          shown += key == question.empty ? 'E' : key == question.taken ? 'T' : '?';
      }
    });
    EXPECT_EQ(ask(i), Korean(question.answer));
    EXPECT_EQ(shown, question.messages);
  }
  EXPECT_EQ(frame.added,
            (std::vector<std::pair<std::string, int>>{{"Tom & Jerry's (%s)", 5}, {"It's <", 8}}));
}

TEST_F(Dialogs, HelpWhereTheHostAsksForIt) {
  frame.skin.SetHostValue(kValueDialogs, kDialogsHelpful);
  WhenShown([&] { EXPECT_TRUE(Click().empty() && !dialog->isVisible()); });
  EXPECT_EQ(AskCabinetName(frame, parent.get(), "Old"), std::nullopt);
  WhenShown([&] { EXPECT_EQ(dialog->windowTitle(), "그룹 추가"); });
  ShowGroupAdd(frame, frame, parent.get());
  WhenShown([&] { EXPECT_EQ(dialog->windowTitle(), "채널 이동"); });
  ShowChannelMove(frame, frame, parent.get(), channel_);
}

TEST_F(Dialogs, AHelpfulOneSaysHowAChannelsLastRefreshEnded) {
  frame.skin.SetHostValue(kValueDialogs, kDialogsHelpful);
  frame.db.Clock().Set(NoonOf(2008, 5, 5));
  const auto at = [](int day) {
    return std::chrono::floor<std::chrono::seconds>(NoonOf(2008, 5, day));
  };
  const std::string known =
      "채널 정보; 채널: 똠방각하; 주소: http://example.com/Daily; 그룹 이름: News; 상태; ";
  const auto expect = [&](const std::string& look) {
    WhenShown([&] { EXPECT_EQ(Look(*dialog), known + look + "; >확인"); });
    ShowChannelInfo(frame, parent.get(), channel_);
  };
  expect("알 수 없음; 마지막 성공: 알 수 없음; 마지막 시도: 알 수 없음");
  channel_.visit = {.tried = at(2), .succeeded = at(2), .movedTo = "http://new/"};
  expect(
      "이상 없음; 마지막 성공: 2008-05-02 12:00; 마지막 시도: 2008-05-02 12:00; "
      "새 주소: http://new/");
  channel_.state = kDocumentRefused;
  channel_.visit = {.fault = {FeedFaultKind::BrokenXml, 7, 1, std::string(150, 'x')},
                    .tried = at(4),
                    .failingSince = at(3)};
  expect("7행 1열에서 잘못된 XML입니다: " + std::string(150, 'x') +
         "\n처음 실패한 때: 2008-05-03 12:00; 마지막 성공: 알 수 없음; "
         "마지막 시도: 2008-05-04 12:00");
}

TEST_F(Dialogs, TheUserChoosesHowLongAChannelIsLeftAlone) {
  using std::chrono_literals::operator""h, std::chrono_literals::operator""min;
  frame.skin.SetHostValue(kValuePeriods, kPeriodsOn);
  const std::tuple<std::chrono::minutes, const char*, std::optional<std::chrono::minutes>> rows[] =
      {{0min, "피드가 정한 간격", {}},
       {0min, "하루에 한 번까지", 24h},
       {24h, "피드가 정한 간격", 0min},
       {7min, "", {}}};  // none of the choices
  for (const auto& [own, choice, chosen] : rows) {
    channel_.ownPeriod = own;
    WhenShown([&, text = choice] {
      EXPECT_EQ(List().currentText().isEmpty(), *text == 0);
      Choose(text);
    });
    EXPECT_EQ(ShowChannelInfo(frame, parent.get(), channel_), chosen) << choice;
  }
}

TEST_F(Dialogs, ACabinetIsChosenFromAllInTheirOrder) {
  const auto choose = [&](const std::vector<Qt::Key>& keys) {
    WhenShown([&] {
      EXPECT_EQ(Look(*dialog), "스크랩; >보관함 선택=|요리|Keep; 확인; 취소");
      for (const Qt::Key key : keys) Press(key);
    });
    return ChooseCabinet(frame, parent.get());
  };
  const int recipes = AddCabinet(frame.GetStore(), Korean("요리"), 3);
  EXPECT_EQ(choose({Qt::Key_Return, Qt::Key_Down, Qt::Key_Return}), recipes);
  EXPECT_EQ(choose({Qt::Key_Down, Qt::Key_Escape}), std::nullopt);
  frame.db.Sql("delete from TB_SCRAP_CHANNEL where scrap_channel_title <> 'Keep'");
  WhenShown([&] { Click(); });  // of one cabinet
  EXPECT_EQ(ChooseCabinet(frame, parent.get()), keep_);
  frame.db.Sql("delete from TB_SCRAP_CHANNEL");
  WhenShown([&] { EXPECT_EQ(Click(), Keys{kTextScrapEmpty}); });
  EXPECT_EQ(ChooseCabinet(frame, parent.get()), std::nullopt);
}

TEST_F(Dialogs, ANameThatCannotBeStoredIsReported) {
  frame.db.Sql("drop table TB_SCRAP_POST; drop table TB_FOLDER");
  WhenShown([&] { Try("Shelf"); });
  ShowCabinetAdd(frame, frame, parent.get());
  EXPECT_EQ(Messages(), Keys{kTextCabinetError});
  WhenShown([&] { EXPECT_EQ(Try("Group"), Keys{kTextGroupError}); });
  ShowGroupAdd(frame, frame, parent.get());
}

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

TEST_F(Dialogs, AChannelIsShownAndGoesToAFolderThatHasNotItsAddress) {
  const char* const look =
      "채널 정보; 채널: 똠방각하; 주소: http://example.com/Daily; 그룹 이름: News; >확인";
  WhenShown([&] { EXPECT_EQ(Look(*dialog), look); });
  ShowChannelInfo(frame, parent.get(), channel_);
  const int gone = AddFolder(frame.GetStore(), "Gone", 6);
  AddFolder(frame.GetStore(), Korean("운동"), 5);
  WhenShown([&] {
    EXPECT_EQ(Look(*dialog), "그룹; >그룹 선택=|News|운동|Gone; 확인; 취소");
    EXPECT_EQ(Choose("News"), Keys{kTextAddChannelDuplicate});
    DeleteFolder(frame.GetStore(), gone);
    EXPECT_EQ(Choose("Gone"), Keys{kTextMoveEmpty});
    EXPECT_EQ(List().count(), 2);
    EXPECT_EQ(ChooseWhileLocked("운동"), Keys{kTextMoveError});
    Press(Qt::Key_Return);
  });
  ShowChannelMove(frame, frame, parent.get(), channel_);
  EXPECT_EQ(frame.moves, (std::vector<std::pair<int, int>>{{daily_, gone + 1}}));
  EXPECT_EQ(frame.db.Count("TB_CHANNEL where channel_folderID = 3"), 1);
}

TEST_F(Dialogs, ALoginNamesWhoWantsItAndIsGivenUpWithEscape) {
  const std::pair<bool, const char*> rows[] = {
      {false, "로그인; 서버: h:8443; 영역: the realm; >이름=; 비밀번호=; 확인; 취소"},
      {true, "로그인; 프록시: h:8443; 영역: the realm; >이름=; 비밀번호=; 확인; 취소"}};
  for (const auto& [isProxy, look] : rows) {
    const LoginQuestion question = {"h:8443", "the realm", isProxy};
    WhenShown([&, look = look] {
      EXPECT_EQ(Look(*dialog), look);
      EXPECT_EQ(Box(3).echoMode(), QLineEdit::Password);
      QTest::keyClicks(dialog->focusWidget(), "me");
      Press(Qt::Key_Tab);
      Try("pw");
    });
    const auto login = ShowLogin(frame, parent.get(), question);
    EXPECT_TRUE(login && login->name == "me" && login->password == "pw");
    WhenShown([&] { Press(Qt::Key_Escape); });
    EXPECT_FALSE(ShowLogin(frame, parent.get(), question));
  }
}

TEST_F(Dialogs, AFileIsAskedForWithTheSuggestedNameInTheUsersFolder) {
  const TempFolder home;
  QStandardPaths::setTestModeEnabled(true);  // nothing of the user's own
  qputenv("HOME", QByteArray::fromStdString(home.Path()));
  const QString folder = QDir::home().dirName();
  const auto enter = [&](const QString& look, const std::string& name) {
    WhenShown([&, look, name] {
      const auto& files = dynamic_cast<QFileDialog&>(*dialog);
      const QStringList parts{files.windowTitle(), files.directory().dirName(),
                              files.nameFilters().join(", "), Box().text(),
                              files.acceptMode() == QFileDialog::AcceptSave ? "save" : "open"};
      EXPECT_EQ(parts.join("; "), look) << look.toStdString();
      Box().setText(QString::fromStdString(home.File(name)));
      dialog->accept();
    });
  };
  enter("h.example에서 받는 파일 저장; " + folder + "; All Files (*); tone.wav; save", "kept.wav");
  EXPECT_TRUE(AskSavePath(frame, parent.get(), "tone.wav", "h.example").endsWith("/kept.wav"));
  const std::string list = home.Write("목록.xml", "");
  const QString import = "OPML 파일 가져오기; " + folder + "; OPML File (*.xml *.opml); ; open";
  enter(import, "목록.xml");
  EXPECT_EQ(AskImportFile(frame, parent.get()), list);
  QDir::home().mkdir("Documents");
  enter("OPML 파일 저장; Documents; OPML file (*.xml *.opml), All file (*); x; save", "new");
  EXPECT_TRUE(AskExportPlace(frame, parent.get(), "x").ends_with("/new.xml"));
  WhenShown([&] { parent.reset(); });
  EXPECT_EQ(AskImportFile(frame, parent.get()), "");
}

}  // namespace feedloom
