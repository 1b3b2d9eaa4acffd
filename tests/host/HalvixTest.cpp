// The program halvix as a whole, off screen, on a profile of its own.

#include <signal.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <fstream>

#include "files/Registry.h"
#include "kit/TempFolder.h"
#include "profile/Profile.h"
#include "profile/ProfileLock.h"
#include "skin/Keys.h"

namespace feedloom {

namespace fs = std::filesystem;

// A program that runs; ended when the object goes.
class Program : public QProcess {
 public:
  Program(const char* file, const QStringList& arguments) {
    // Signals that this program was started to ignore would be ignored there, too.
    setChildProcessModifier([] { signal(SIGINT, SIG_DFL), signal(SIGHUP, SIG_DFL); });
    start(file, arguments);
  }
  ~Program() override { kill(), waitForFinished(-1); }

  // False when the program ends before stdout has `times` lines that are `line`.
  bool WaitForLine(const QString& line, int times = 1) {
    while (out.split('\n').count(line) < times) {
      if (!waitForReadyRead(-1)) return false;
      out += readAllStandardOutput();
    }
    return true;
  }
  // Waits for the end; the exit status, -1 when a signal ended it.
  int Finish() {
    waitForFinished(-1);
    out += readAllStandardOutput();
    return exitStatus() == NormalExit ? exitCode() : -1;
  }
  int Finish(int signalNumber) { return ::kill(pid_t(processId()), signalNumber), Finish(); }

  QString out;
};

struct HalvixTest : testing::Test {
  void UseModule() const {
    fs::create_directories(paths_.moduleDir);
    fs::copy_file(FAKE_MODULE, paths_.module);
  }
  QStringList Arguments(const QStringList& more) const {
    return QStringList{"--profile", QString::fromStdString(paths_.dir)} << more;
  }
  // What the program writes when it ends with this status by itself.
  QString Run(const char* file, const QStringList& arguments, int status = 0) const {
    Program program(file, Arguments(arguments));
    EXPECT_EQ(program.Finish(), status);
    return program.out + program.readAllStandardError();
  }
  void ExpectRefused(const QString& words, const QStringList& arguments = {}) const {
    EXPECT_TRUE(Run(HALVIX, arguments, 1).contains(words)) << words.toStdString();
  }
  // Starts the window with the fake module in it, ends it again, and gives what the module told.
  QString RunOnce(const QStringList& arguments = {}, int signalNumber = SIGTERM) const {
    Program halvix(HALVIX, Arguments(arguments));
    EXPECT_TRUE(halvix.WaitForLine("idle"));
    EXPECT_EQ(halvix.Finish(signalNumber), 0);
    EXPECT_FALSE(halvix.readAllStandardError().contains("Cannot remember"));
    return halvix.out;
  }
  std::string RegistryText(const char* name) const {
    return Registry(paths_.registry).ReadString(kHostKey, name).value_or("(none)");
  }

  const TempFolder folder_;
  const ProfilePaths paths_{folder_.File("내 프로필")};
  const QString picture_ = QString::fromStdString(folder_.File("window.png"));
};

TEST_F(HalvixTest, MakesAProfileAndRefreshesItsChannelsOnce) {
  UseModule();
  const QString begin = "loaded early\ntext &Quit\nskin rss_html/main_ENG.html\n";
  EXPECT_EQ(RunOnce({"--lang", "eng", "--code-page", "utf-8"}),
            begin + "message 12412\nidle\ndestroyed\n");
  EXPECT_GT(RegistryText(kValueWindowGeometry).size(), 50u);
  ASSERT_FALSE(WriteFileWhole(paths_.database + ".bak", "the last copy"));
  for (const int end : {SIGINT, SIGHUP}) EXPECT_EQ(RunOnce({}, end), begin + "idle\ndestroyed\n");
  EXPECT_FALSE(fs::is_empty(paths_.dir + "/backups")) << "one of each day";
  ExpectRefused("keeps its texts in UTF-8; only a new profile can have EUC-KR.",
                {"--lang", "KOR", "--code-page", "EUC-KR"});
  EXPECT_TRUE(RunOnce({"--lang", "kor"}).contains("text 끝내기(&Q)\n"));
}

TEST_F(HalvixTest, ItsMenuCommandsTheModuleAndShowsItAnewInAnotherLook) {
  UseModule();
  qputenv("FAKE_MODULE",
          "환경 설정(&S)…;마지막 메시지 보기(&M);모든 채널 새로 고침(&R);어두운 화면(&D)");
  Program halvix(HALVIX, Arguments({"--lang", "KOR", "--code-page", "UTF-8"}));
  qunsetenv("FAKE_MODULE");
  ASSERT_TRUE(halvix.WaitForLine("loaded early", 2));
  EXPECT_EQ(halvix.Finish(SIGTERM), 0);
  EXPECT_EQ(halvix.out.section("idle\n", 1).section("skin", 0, 0).toStdString(),
            "message 12411\nmessage 12409\nmessage 12412\ndestroyed\n"
            "loaded early\ntext 끝내기(&Q)\n");
  EXPECT_EQ(RegistryText(kValueImageDir), ShareDir() + "/skin/dark");
}

TEST_F(HalvixTest, IsAloneOnItsProfileAndOpensWhatLaterStartsHandOver) {
  UseModule();
  const QString here = QDir::currentPath();
  {
    Program first(HALVIX, Arguments({"http://a.example/"}));
    ASSERT_TRUE(first.WaitForLine("loaded early"));
    EXPECT_EQ(Run(HALVIX, {"list.opml"}), "");
    ASSERT_TRUE(first.WaitForLine("open http://a.example/"));
    ASSERT_TRUE(first.WaitForLine("open " + here + "/list.opml"));
    EXPECT_EQ(Run(HALVIX, {"feed:b.example", "file:///tmp/%61"}), "");
    EXPECT_TRUE(first.WaitForLine("open feed:b.example") && first.WaitForLine("open /tmp/a"));
    ExpectRefused("is in use by another halvix.", {"--screenshot", picture_});
    Run(FEEDLOOMCTL, {"refresh"});
  }
  EXPECT_TRUE(RunOnce().contains("destroyed")) << "after the first was killed";
}

TEST_F(HalvixTest, SaysWhoElseHasItsProfile) {
  UseModule();
  RunOnce();
  ProfileLock lock;
  ASSERT_FALSE(lock.Take(paths_.dir));
  const std::string file = paths_.dir + "/halvix.lock", here = ThisHolder().machine;
  std::ofstream(file) << "elsewhere\nsomebody\n";
  ExpectRefused("is in use on the machine elsewhere. Close the window there first.");
  std::ofstream(file) << here << "\nsomebody\n";
  ExpectRefused("The user somebody is using the profile '");
}

TEST_F(HalvixTest, RefusesWhatItCannotUseAndLeavesItAsItIs) {
  UseModule();
  RunOnce();
  for (const auto& [file, content, words] :
       {std::tuple(paths_.registry, "not a registry",
                   "registry.reg' cannot be read or is damaged."),
        {paths_.database, "SQLite", "rssdb' cannot be read or is damaged."},
        {paths_.module, "not a library", "file too short."}}) {
    const std::string before = ReadFile(file).value();
    ASSERT_FALSE(WriteFileWhole(file, content));
    ExpectRefused(words);
    EXPECT_EQ(ReadFile(file), content);
    ASSERT_FALSE(WriteFileWhole(file, before));
  }
  qputenv("FAKE_MODULE", "null");
  ExpectRefused("The module cannot make its window.");
  qunsetenv("FAKE_MODULE");
  fs::rename(paths_.database, paths_.database + ".bak");
  ExpectRefused("rssdb' is missing. There is a copy of it: '");
}

TEST_F(HalvixTest, TakesThePictureOfTheChosenRowAndTellsHowLongItTakes) {
  UseModule();
  const QString told = Run(HALVIX, {"--timings", "--screenshot", picture_});
  EXPECT_TRUE(told.contains("destroyed\n") && !told.contains("message"));
  for (const char* step : {"arguments read", "window painted", "module's frame made"})
    EXPECT_TRUE(told.contains(QString("ms: ") + step)) << step;
  EXPECT_EQ(told.count("ms: page shown"), 2);
  const QImage picture(picture_);
  ASSERT_EQ(picture.size(), QSize(1024, 700));
  EXPECT_TRUE(picture.pixelColor(512, 350) == Qt::blue);
  ExpectRefused("Cannot write the picture '/nowhere/window.png': ",
                {"--screenshot", "/nowhere/window.png"});
}

TEST_F(HalvixTest, TheMinimalHostOfTheDocumentShowsAModuleAndLeaves) {
  qputenv("FAKE_MODULE", "close");
  Program host(MINIMAL_HOST, {FAKE_MODULE, QString::fromStdString(ShareDir() + "/image.ini")});
  qunsetenv("FAKE_MODULE");
  EXPECT_EQ(host.Finish(), 0);
  EXPECT_TRUE(host.out.endsWith("skin rss_html/main.html\nidle\ndestroyed\n"));
}

}  // namespace feedloom
