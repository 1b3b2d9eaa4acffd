// The window and what stands behind it, in this process.

#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>
#include <fstream>

#include "host/AboutBox.h"
#include "host/BackupDialogs.h"
#include "host/CommandLine.h"
#include "host/ContentQueue.h"
#include "host/DamageDialog.h"
#include "host/HostSwitches.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/MessageLog.h"
#include "host/MessagesDialog.h"
#include "host/RaiseWindow.h"
#include "host/WindowGeometry.h"
#include "kit/ShippedSkin.h"
#include "kit/TestProfile.h"
#include "look/DialogAnswers.h"
#include "profile/DatabaseRepair.h"
#include "profile/ProfileBackup.h"
#include "shell/Feedloom.h"

namespace feedloom {

struct HostWindowTest : QObject, testing::Test {
  HostWindowTest() {
    SetHostTables(ReadHostTexts(skin_.Get().Config()), CodePage::Korean());
    window_ = std::make_unique<HostWindow>("Halvix", Appearance{"dark", "KOR"},
                                           ViewChoices{ListPlace::Beside, {&HostSwitches()[1]}});
    auto* const frame = new QWidget(window_->ModuleParent());
    frame->installEventFilter(this);
    window_->SetFrame(frame);
    window_->resize(400, 300);
    window_->show();
  }
  // A message of the module, to its parent or to the window around it.
  static void Send(QWidget* receiver, unsigned number, const std::string* text = nullptr) {
    WindowMessage message(number, 0, reinterpret_cast<std::intptr_t>(text));
    QCoreApplication::sendEvent(receiver, &message);
    QCoreApplication::processEvents();
  }

  bool eventFilter(QObject* /*frame*/, QEvent* event) override {
    if (event->type() != WindowMessage::kType) return false;
    auto& message = *static_cast<WindowMessage*>(event);
    told_.push_back(message.number);
    if (message.number == kMessageOpenContent) {
      opened_ << QString::fromStdString(*reinterpret_cast<const std::string*>(message.lParam));
      message.result = opened_.back().startsWith("http:") ? 1 : 0;
    }
    return true;
  }

  const ShippedSkin skin_;
  std::vector<unsigned> told_;  // to the frame
  QStringList opened_;          // by the frame
  std::unique_ptr<HostWindow> window_;
};

TEST_F(HostWindowTest, ShowsTheModulesTextsInOneLineAsTheyAre) {
  const auto& status = *window_->statusBar()->findChild<QLabel*>();
  const std::string bytes = CodePage::Korean().FromUtf8("똠방각하 <b>새</b>\r\n글 ");
  const std::string text = bytes + std::string(5000, 'x');
  Send(window_->ModuleParent(), kMessageShowText, &text);
  Send(window_->ModuleParent(), kMessageShowText);
  EXPECT_EQ(status.text(), "똠방각하 <b>새</b> 글 " + QString(5000, 'x'));
  EXPECT_EQ(status.textFormat(), Qt::PlainText);
  EXPECT_EQ(window_->width(), 400);
  EXPECT_TRUE(status.toolTip().startsWith("<p>똠방각하 &lt;b&gt;새&lt;/b&gt;\r\n글 "));
  EXPECT_TRUE(status.accessibleDescription().startsWith("똠방각하 <b>"));
}

TEST_F(HostWindowTest, LeavesDropsOnItsOwnPartsToTheModule) {
  struct Frame : QWidget {
    bool event(QEvent* event) override {
      types.push_back(event->type());
      return QWidget::event(event);
    }
    std::vector<QEvent::Type> types;
  };
  auto* const frame = new Frame;
  window_->SetFrame(frame);
  QMimeData data;
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(window_->statusBar(), &enter);
  EXPECT_EQ(frame->types.back(), QEvent::DragEnter);
}

TEST_F(HostWindowTest, ShowsHowFarARefreshIsAndStopsIt) {
  const auto& busy = *window_->statusBar()->findChild<QProgressBar*>();
  auto& stop = *window_->statusBar()->findChildren<QToolButton*>().last();
  for (const unsigned message : {kMessageRefreshBegan, kMessageRefreshEnded}) {
    Send(window_.get(), message);
    const bool isRunning = message == kMessageRefreshBegan;
    EXPECT_TRUE(busy.isVisible() == isRunning && stop.isVisible() == isRunning);
    EXPECT_TRUE(busy.text().isEmpty() && stop.defaultAction()->isEnabled() == isRunning);
    if (!isRunning) break;
    WindowMessage progress(kMessageRefreshProgress, 12, 35);
    QCoreApplication::sendEvent(window_.get(), &progress);
    EXPECT_EQ(busy.text(), "12/35");
    stop.click();
    EXPECT_EQ(told_, std::vector<unsigned>{kMessageStopRefresh});
    EXPECT_FALSE(stop.isEnabled());
  }
}

TEST_F(HostWindowTest, OffersToUndoTheLastStepAsLongAsTheModuleDoes) {
  const auto& undo = *window_->statusBar()->findChild<QToolButton*>();
  const std::string step = CodePage::Korean().FromUtf8("글 3개 삭제"), none;
  EXPECT_FALSE(undo.isVisible());
  Send(window_->ModuleParent(), kMessageUndoOffered, &step);
  EXPECT_TRUE(undo.isVisible());
  EXPECT_EQ(undo.text() + ": " + undo.accessibleDescription(), "실행 취소: 글 3개 삭제");
  Send(window_->ModuleParent(), kMessageUndoOffered, &none);
  EXPECT_FALSE(undo.isVisible());
}

TEST_F(HostWindowTest, OpensContentsOneByOneWhenTheUserIsFreeAndNamesWhatItDoesNot) {
  auto& contents = *new ContentQueue(*window_);
  QDialog dialog(window_.get());
  dialog.setModal(true);
  dialog.show();
  HandOver many{{"http://a/", "ftp://me:pw@c/%10", "http://b/", "/no"}, 3};
  many.contents.resize(ContentQueue::kMostWaiting + 90, "x");
  contents.Add(many);
  QTimer look;  // behind those of the queue
  look.start(250);
  QSignalSpy looked(&look, &QTimer::timeout);
  ASSERT_TRUE(looked.wait());
  EXPECT_EQ(opened_, QStringList());
  dialog.close();
  const auto& status = *window_->statusBar()->findChild<QLabel*>();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !status.text().isEmpty(); }));
  EXPECT_EQ(opened_.mid(0, 5).join(' '), "http://a/ ftp://me:pw@c/%10 http://b/ /no x");
  EXPECT_TRUE(status.text().startsWith("한 번에 10개까지 열 수 있습니다. 열지 않은 것: 93개"));
  EXPECT_TRUE(status.text().contains("추가하지 않았습니다: ftp://c/%10 외 7개"))
      << status.text().toStdString();
}

TEST_F(HostWindowTest, ComesBackFromWhereverItIs) {
  window_->hide();
  RaiseWindow(*window_);
  EXPECT_TRUE(window_->isVisible() && QTest::qWaitForWindowActive(window_.get()));
  window_->setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
  RaiseWindow(*window_);
  EXPECT_EQ(window_->windowState() & ~Qt::WindowActive, Qt::WindowMaximized);
}

TEST_F(HostWindowTest, IsTitledByTheUnreadPostsAndHidesOrEndsWhenItIsClosed) {
  QSignalSpy news(window_.get(), &HostWindow::NewPostsCame),
      ends(window_.get(), &HostWindow::Closing);
  for (const int unread : {12, 0}) {
    WindowMessage count(kMessageUnreadCount, unread, 0);
    QCoreApplication::sendEvent(window_.get(), &count);
    EXPECT_EQ(window_->windowTitle(), unread == 12 ? "(12) Halvix" : "Halvix");
  }
  const std::string lines = CodePage::Korean().FromUtf8("채널\t2\t글");
  Send(window_.get(), kMessageNewPosts, &lines);
  EXPECT_EQ(news, (QList<QVariantList>{{0, "채널\t2\t글"}}));
  window_->StayOnClose([] { return true; });
  window_->close();
  EXPECT_TRUE(window_->isHidden() && ends.empty());
  window_->Quit();
  EXPECT_EQ(ends.size(), 1);
}

TEST_F(HostWindowTest, TheMenuShowsWhetherTheModuleShowsUnreadPostsOnly) {
  const auto actions = window_->findChildren<QAction*>();
  QAction& entry = **std::ranges::find(actions, "읽지 않은 글만 보기(&U)", &QAction::text);
  for (const int isOn : {1, 0}) {
    WindowMessage shown(kMessageUnreadOnlyShown, isOn, 0);
    QCoreApplication::sendEvent(window_.get(), &shown);
    EXPECT_EQ(entry.isChecked(), isOn == 1);
  }
  entry.trigger();
  EXPECT_EQ(told_, std::vector<unsigned>{kMessageShowUnreadOnly});
  EXPECT_FALSE(entry.isChecked()) << "this module does not know the message";
}

TEST_F(HostWindowTest, TheMenuOffersOtherLooksThanThoseOfNowAndTheEnd) {
  QStringList told, all;
  for (const auto* action : window_->findChildren<QAction*>())
    all << action->text() + (action->isChecked() ? "*" : "") + action->shortcut().toString();
  EXPECT_EQ(all.join(' ').toStdString(),
            "파일(&F) 모든 채널 새로 고침(&R)Ctrl+R 새로 고침 멈춤(&T) 마지막 메시지 보기(&M) "
            "메시지 목록(&L)… 환경 "
            "설정(&S)…  백업(&B)… 백업에서 복원(&O)…  "
            "끝내기(&Q)Ctrl+Q 보기(&V) 밝은 화면(&L) 어두운 화면(&D)*  한국어(&K)* English(&E)  "
            "목록을 글 위에(&T) 목록을 글 옆에(&B)*  읽지 않은 글만 보기(&U) 링크를 시스템 "
            "브라우저에서 열기(&S) 사이트 아이콘(&C)* "
            "닫아도 트레이에서 계속 실행(&W) 로그인할 때 시작(&G) 데스크톱 알림(&N) "
            "도움말(&H) 키와 동작(&K)…F1 Feedloom 정보(&A) ");
  QObject::connect(window_.get(), &HostWindow::Closing, [&] { told << "closing"; });
  QObject::connect(window_.get(), &HostWindow::AppearanceChosen, [&](const Appearance& chosen) {
    told << QString::fromStdString(chosen.skin + " " + chosen.language);
  });
  QObject::connect(window_.get(), &HostWindow::ListPlaceChosen, [&](ListPlace place) {
    told << (place == ListPlace::Above ? "above" : "beside");
  });
  QObject::connect(window_.get(), &HostWindow::SwitchTurned, [&](const auto& which, bool isOn) {
    told << (isOn ? "on: " : "off: ") + QString(which.textKey);
  });
  for (const char* entry :
       {"목록을 글 위에(&T)", "사이트 아이콘(&C)", "링크를 시스템 브라우저에서 열기(&S)",
        "어두운 화면(&D)", "한국어(&K)", "밝은 화면(&L)", "English(&E)", "끝내기(&Q)"}) {
    for (auto* action : window_->findChildren<QAction*>())
      if (action->text() == entry) action->trigger();
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(told, QStringList({"off: MENU_SITE_ICONS", "on: MENU_LINKS_OUTSIDE", "above",
                               "light KOR", "dark ENG", "closing"}));
}

TEST_F(HostWindowTest, ListsWhatTheStatusBarSaidNewestFirstAndWhatOfItFailed) {
  const auto say = [&](const std::string& text) {
    Send(window_->ModuleParent(), kMessageShowText, &text);
  };
  say("one");
  for (auto* action : window_->findChildren<QAction*>())
    if (action->text() == "메시지 목록(&L)…") action->trigger();
  QCoreApplication::processEvents();
  const auto& list = *window_->findChild<QTreeWidget*>();
  for (int i = 0; i < 600; ++i) say(std::to_string(i));
  EXPECT_EQ(list.topLevelItemCount(), 500);
  EXPECT_EQ(list.topLevelItem(0)->text(1), "599");
  MessageLog log;
  log.Add("a"), log.Add("b"), log.Add("b"), log.MarkFailure();
  MessagesDialog dialog(log, nullptr);
  const auto& rows = *dialog.findChild<QTreeWidget*>();
  EXPECT_EQ(rows.topLevelItem(0)->text(1) + ";" + rows.topLevelItem(1)->text(1), "[실패] b (2×);a");
}

TEST_F(HostWindowTest, AboutTellsWhatItIsMadeWithAndWhereTheProfileLies) {
  DialogAnswers answers;
  QString told;
  answers.Next([&](QDialog& dialog) { told = dynamic_cast<QMessageBox&>(dialog).text(); });
  ShowAbout(*window_, ProfilePaths("/my/profile"));
  for (const QString part : {FEEDLOOM_VERSION, qVersion(), "SQLite 3.", "MIT", "/my/profile"})
    EXPECT_TRUE(told.contains(part)) << told.toStdString();
}

TEST_F(HostWindowTest, ABackupTakesTheProfilesPlaceOnlyIfTheUserMeansIt) {
  const TestProfile profile;
  const std::string file = profile.Paths().dir + "/b.db";
  std::ofstream(profile.Paths().dir + "/logins.reg");
  DialogAnswers answers;
  const auto choose = [&] {
    answers.Next([&](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(file));
      dialog.accept();
    });
  };
  const auto consent = [&](bool isMeant) {
    answers.Next([isMeant](QDialog& dialog) {
      if (!isMeant) return QTest::keyClick(&dialog, Qt::Key_Return);
      dynamic_cast<QMessageBox&>(dialog).button(QMessageBox::Yes)->click();
    });
  };
  choose(), consent(false);  // without logins
  BackUp(*window_, profile.Paths());
  EXPECT_TRUE(std::filesystem::exists(file));
  int restarts = 0;
  for (const bool isMeant : {false, true}) {
    EXPECT_TRUE(restarts == 0 && !IsRestorePending(profile.Paths()));
    choose(), consent(isMeant);
    Restore(*window_, profile.Paths(), [&] { ++restarts; });
  }
  EXPECT_TRUE(restarts == 1 && IsRestorePending(profile.Paths()));
  std::filesystem::remove(profile.Paths().dir + "/logins.reg");
  EXPECT_EQ(CompleteRestore(profile.Paths()), Failure());
  EXPECT_FALSE(std::filesystem::exists(profile.Paths().dir + "/logins.reg"));
}

TEST_F(HostWindowTest, ADamagedDatabaseIsKeptWhateverTheUserChooses) {
  HostProfile profile(TempFolder().File("p"));
  const ProfilePaths& paths = profile.paths;
  ASSERT_EQ(CreateProfile(paths.dir, ShareDir(), CodePage::Utf8(), "ENG"), Failure());
  std::filesystem::copy(paths.database, paths.database + ".bak");
  DialogAnswers answers;
  for (const char* choice : {"Quit", "Restore", "Start empty"}) {
    std::ofstream(paths.database) << choice;
    EXPECT_TRUE(NeedsRepair(paths));
    answers.Next([choice](QDialog& dialog) {
      for (auto* button : dialog.findChildren<QAbstractButton*>())
        if (button->text().startsWith(choice)) button->click();
    });
    EXPECT_EQ(OfferRepair(profile), *choice != 'Q');
    EXPECT_EQ(NeedsRepair(paths), *choice == 'Q');
  }
  std::set<std::string> kept;
  for (const auto& entry : std::filesystem::directory_iterator(paths.moduleDir))
    if (entry.path().extension() != ".bak") kept.insert(ReadFile(entry.path()).value());
  EXPECT_TRUE(kept.contains("Restore") && kept.contains("Start empty"));
}

TEST(CommandLine, GivesTheOptionsOrTheStatusToLeaveWith) {
  testing::internal::CaptureStdout(), testing::internal::CaptureStderr();
  for (const QByteArray row :
       {"halvix -> |||", "halvix --profile a --lang kor --code-page Utf-8 -> a|kor|Utf-8|",
        "halvix --screenshot b --timings -> !|||b", "halvix --help -> 0", "halvix --version -> 0",
        "halvix --lang FRA -> 2", "halvix --code-page CP949 -> 2", "halvix --opml a -> 2",
        "halvix a --timings -- --b -> !|||+a+--b"}) {
    const QByteArrayList words = row.left(row.indexOf(" -> ")).split(' ');
    std::vector<const char*> argv(words.begin(), words.end());
    HostOptions o;
    const auto status = ReadCommandLine(static_cast<int>(argv.size()), argv.data(), o);
    std::string all = o.profileDir + (o.timings ? "!" : "");
    for (const auto& part : {o.language, o.codePage, o.screenshot}) all += "|" + part.value_or("");
    for (const std::string& content : o.contents) all += "+" + content;
    EXPECT_EQ(status ? std::to_string(*status) : all, row.mid(row.indexOf(" -> ") + 4).data());
  }
  const std::string told = testing::internal::GetCapturedStdout();
  EXPECT_TRUE(told.find("--timings") < told.find("halvix " FEEDLOOM_VERSION)) << told;
  EXPECT_NE(testing::internal::GetCapturedStderr().find("--lang"), std::string::npos);
}

TEST(WindowGeometry, IsRememberedAndAtFirstInTheMiddleOfTheScreen) {
  EXPECT_EQ(InitialGeometry({0, 0, 1920, 1080}), QRect(448, 190, 1024, 700));
  EXPECT_EQ(InitialGeometry({10, 20, 1100, 600}), QRect(48, 20, 1024, 600));
  const TempFolder folder;
  const Registry registry(folder.File("registry.reg"));
  QWidget window, other;
  RestoreWindowGeometry(window, registry);
  EXPECT_EQ(window.geometry(), InitialGeometry(window.screen()->availableGeometry()));
  window.setGeometry(30, 40, 300, 200);
  EXPECT_TRUE(SaveWindowGeometry(window, registry));
  RestoreWindowGeometry(other, registry);
  EXPECT_EQ(other.geometry(), QRect(30, 40, 300, 200));
  EXPECT_FALSE(SaveWindowGeometry(window, Registry(folder.File("none/registry.reg"))));
}

}  // namespace feedloom
