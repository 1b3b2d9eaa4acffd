// The dialogs about folders, channels, cabinets, logins and files, with a real store.

#include "threads/Messages.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {

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
