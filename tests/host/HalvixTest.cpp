// The program halvix as a whole, off screen, on a profile of its own.

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QImage>
#include <QProcess>
#include <filesystem>
#include <map>

#include "kit/TempFolder.h"
#include "platform/Registry.h"
#include "profile/Profile.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

// A program that runs; ended when the object goes.
class Program : public QProcess {
 public:
  Program(const char* file, const QStringList& arguments) {
    // Signals that this program was started to ignore would be ignored there, too.
    setChildProcessModifier([] {
      for (const int number : {SIGINT, SIGTERM, SIGHUP}) signal(number, SIG_DFL);
    });
    start(file, arguments);
  }
  ~Program() override { kill(), waitForFinished(-1); }

  // Waits until stdout has `times` lines that are `line`; false when it ends before.
  bool WaitForLine(const QString& line, int times = 1) {
    while (out.split('\n').count(line) < times) {
      if (!waitForReadyRead(-1)) return false;
      out += readAllStandardOutput();
    }
    return true;
  }
  // Waits for the end; the exit status, -1 when a signal ended it.
  int Finish(int signalNumber = 0) {
    if (signalNumber != 0 && processId() != 0)
      ::kill(static_cast<pid_t>(processId()), signalNumber);
    waitForFinished(-1);
    out += readAllStandardOutput(), err += readAllStandardError();
    return exitStatus() == NormalExit ? exitCode() : -1;
  }

  QString out, err;
};

class HalvixTest : public testing::Test {
 protected:
  void UseModule(const char* library = FAKE_MODULE) const {
    fs::create_directories(paths_.moduleDir);
    fs::copy_file(library, paths_.module, fs::copy_options::overwrite_existing);
  }
  QStringList Arguments(QStringList more) const {
    return QStringList{"--profile", QString::fromStdString(paths_.dir)} << more;
  }
  // Starts the window with the fake module in it, ends it again, and gives what the module told.
  QString RunOnce(const QStringList& arguments = {}, int signalNumber = SIGTERM) const {
    Program halvix(HALVIX, Arguments(arguments));
    EXPECT_TRUE(halvix.WaitForLine("idle"));
    EXPECT_EQ(halvix.Finish(signalNumber), 0) << halvix.err.toStdString();
    return halvix.out;
  }
  // Expects that halvix refuses the profile with these words, and leaves its files as they are.
  void ExpectRefused(const QString& words, const QStringList& arguments = {}) const {
    const auto before = Files();
    Program halvix(HALVIX, Arguments(arguments));
    EXPECT_EQ(halvix.Finish(), 1);
    EXPECT_TRUE(halvix.err.contains("halvix: ") && halvix.err.contains(words))
        << halvix.err.toStdString();
    EXPECT_EQ(Files(), before);
  }
  std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(paths_.dir, ignored)) {
      if (entry.is_regular_file()) files[entry.path()] = ReadFile(entry.path()).value_or("");
    }
    return files;
  }
  // The window's picture, which `arguments` lead to.
  QImage Picture(QString* out = nullptr, const QStringList& arguments = {}) const {
    const QString file = QString::fromStdString(folder_.File("window.png"));
    Program halvix(HALVIX, Arguments(QStringList{"--screenshot", file} << arguments));
    EXPECT_EQ(halvix.Finish(), 0) << halvix.err.toStdString();
    if (out != nullptr) *out = halvix.out + halvix.err;
    return QImage(file);
  }
  QByteArray Feedloomctl(const char* command) const {
    Program program(FEEDLOOMCTL, Arguments({command}));
    EXPECT_EQ(program.Finish(), 0);
    return program.out.toUtf8();
  }
  std::string RegistryText(const char* name) const {
    return Registry(paths_.registry).ReadString(kHostKey, name).value_or("(none)");
  }

  const TempFolder folder_;
  const ProfilePaths paths_{folder_.File("내 프로필")};
};

TEST_F(HalvixTest, TellsItsOptionsAndItsVersion) {
  Program help(HALVIX, {"--help"}), version(HALVIX, {"--version"}),
      wrong(HALVIX, Arguments({"--lang", "FRA"}));
  EXPECT_EQ(help.Finish() + version.Finish(), 0);
  for (const char* option : {"--profile", "--lang", "--code-page", "--screenshot", "--timings"}) {
    EXPECT_TRUE(help.out.contains(option)) << option;
  }
  EXPECT_EQ(version.out, "halvix " FEEDLOOM_VERSION "\n");
  EXPECT_EQ(wrong.Finish(), 2);
  EXPECT_FALSE(ProfileExists(paths_));
}

TEST_F(HalvixTest, MakesAProfileAndRefreshesItsChannelsOnce) {
  UseModule();
  const QString begin = "loaded early\nwindow on screen\ntext &Quit\nskin rss_html/main_ENG.html\n";
  EXPECT_EQ(RunOnce({"--lang", "eng", "--code-page", "utf-8"}),
            begin + "message 12412\nidle\ndestroyed\n");
  const std::string geometry = RegistryText(kValueWindowGeometry);
  EXPECT_GT(geometry.size(), 50u);
  for (const int number : {SIGINT, SIGHUP})
    EXPECT_EQ(RunOnce({}, number), begin + "idle\ndestroyed\n");
  EXPECT_EQ(RegistryText(kValueWindowGeometry), geometry);
}

TEST_F(HalvixTest, ChangesTheLanguageOfAProfileButNotItsCodePage) {
  UseModule();
  RunOnce({"--code-page", "UTF-8"});
  EXPECT_TRUE(RunOnce({"--lang", "ENG", "--code-page", "UTF-8"}).contains("text &Quit\n"));
  ExpectRefused("keeps its texts in UTF-8; only a new profile can have EUC-KR.",
                {"--lang", "KOR", "--code-page", "EUC-KR"});
  EXPECT_TRUE(RunOnce({"--lang", "kor"}).contains("text 끝내기(&Q)\n"));
}

TEST_F(HalvixTest, IsShownAnewInTheLooksThatTheMenuOffers) {
  UseModule();
  RunOnce({"--lang", "KOR", "--code-page", "UTF-8"});
  for (const auto& [entry, told] :
       {std::pair("어두운 화면(&D)", "끝내기(&Q)"), {"English(&E)", "&Quit"}}) {
    qputenv("FAKE_MODULE_CHOOSES", entry);
    Program halvix(HALVIX, Arguments({}));
    ASSERT_TRUE(halvix.WaitForLine("loaded early", 2)) << entry;
    EXPECT_EQ(halvix.Finish(SIGTERM), 0);
    EXPECT_TRUE(halvix.out.contains(
        QString("idle\ndestroyed\nloaded early\nwindow on screen\ntext ") + told));
    EXPECT_TRUE(halvix.out.endsWith("destroyed\n"));
  }
  qunsetenv("FAKE_MODULE_CHOOSES");
  EXPECT_EQ(RegistryText(kValueImageDir), ShareDir() + "/skin/dark");
  EXPECT_EQ(RegistryText(kValueLanguage), "ENG");
}

TEST_F(HalvixTest, IsAloneOnItsProfileButForTheCommandLine) {
  UseModule();
  {
    Program first(HALVIX, Arguments({}));
    ASSERT_TRUE(first.WaitForLine("idle"));
    ExpectRefused("is in use by another halvix.");
    Feedloomctl("refresh");
  }
  EXPECT_TRUE(RunOnce().contains("destroyed")) << "after the first was killed";
}

TEST_F(HalvixTest, RefusesWhatItCannotUse) {
  ASSERT_FALSE(WriteFileWhole(paths_.dir, "a file"));
  ExpectRefused("Not a directory.");
  EXPECT_EQ(ReadFile(paths_.dir), "a file");
  fs::remove(paths_.dir);
  UseModule();
  RunOnce();

  ASSERT_FALSE(WriteFileWhole(paths_.module, "not a library"));
  ExpectRefused("file too short.");
  UseModule(EMPTY_MODULE);
  ExpectRefused("undefined symbol: Create.");
  UseModule();
  qputenv("FAKE_MODULE", "null");
  ExpectRefused("The module cannot make its window.");
  qunsetenv("FAKE_MODULE");
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) qunsetenv(name);
  ExpectRefused("No display");
  qputenv("QT_QPA_PLATFORM", platform);
  if (geteuid() != 0) {  // root may write everywhere
    fs::permissions(paths_.moduleDir, fs::perms::owner_read | fs::perms::owner_exec);
    ExpectRefused("Permission denied.");
    fs::permissions(paths_.moduleDir, fs::perms::owner_all);
  }

  const std::string registry = ReadFile(paths_.registry).value();
  ASSERT_FALSE(WriteFileWhole(paths_.registry, "not a registry"));
  ExpectRefused("registry.reg' cannot be read or is damaged.");
  ASSERT_FALSE(WriteFileWhole(paths_.registry, registry));
  fs::rename(paths_.database, paths_.database + ".bak");
  ExpectRefused("rssdb' is missing. There is a copy of it: '");
  for (const char* damaged : {"", "not a database at all", "SQLite"}) {
    ASSERT_FALSE(WriteFileWhole(paths_.database, damaged));
    ExpectRefused("rssdb' cannot be read or is damaged.");
  }
}

TEST_F(HalvixTest, TakesThePictureOfTheChosenRowAndTellsHowLongItTakes) {
  UseModule();
  QString out;
  const QImage picture = Picture(&out, {"--timings"});
  EXPECT_TRUE(out.contains("destroyed\n") && !out.contains("message"));
  ASSERT_EQ(picture.size(), QSize(1024, 700));
  EXPECT_EQ(picture.pixelColor(512, 350), QColor(Qt::blue));
  EXPECT_EQ(RegistryText(kValueWindowGeometry), "(none)");
  qsizetype at = 0;
  for (const char* step : {"ms: profile opened", "ms: window painted", "ms: module's frame made",
                           "ms: page shown", "ms: page shown"}) {
    at = out.indexOf(step, at) + 1;
    ASSERT_GT(at, 0) << step << " in\n" << out.toStdString();
  }
  Program halvix(HALVIX, Arguments({"--screenshot", "/nowhere/window.png"}));
  EXPECT_EQ(halvix.Finish(), 1);
  EXPECT_TRUE(halvix.err.contains("Cannot write the picture '/nowhere/window.png': "));
}

// From here on with the module that the project builds.
TEST_F(HalvixTest, LinksTheModuleAndShowsTheFirstPost) {
  fs::create_directories(paths_.moduleDir);
  fs::create_symlink("/nowhere/feedloom.so", paths_.module);
  const QImage withoutPosts = Picture(nullptr, {"--lang", "KOR"});
  EXPECT_EQ(withoutPosts.size(), QSize(1024, 700));
  EXPECT_EQ(fs::read_symlink(paths_.module), MODULE);
  EXPECT_TRUE(IsRegularFile(paths_.database + ".bak"));
  Feedloomctl("refresh");
  EXPECT_NE(Picture(), withoutPosts);
  const QByteArray posts = Feedloomctl("posts");
  EXPECT_EQ(posts.count('\n'), 5);
  EXPECT_EQ(posts.count(" * "), 4) << "the post that was shown is read\n" << posts.constData();
}

TEST_F(HalvixTest, ShowsFineImagesWhereTheScreenIsFine) {
  qputenv("QT_SCALE_FACTOR", "2");
  const QImage picture = Picture();
  qunsetenv("QT_SCALE_FACTOR");
  ASSERT_EQ(picture.size(), QSize(2048, 1400));
  // In the tree's toolbar: of an image with one pixel for four, each of the four would be the same.
  int uneven = 0;
  for (int i = 0; i < 20 * 137; ++i) {
    const QRect four(16 + i % 137 * 2, 60 + i / 137 * 2, 2, 2);
    uneven += picture.copy(four) != picture.copy(four.x(), four.y(), 1, 1).scaled(2, 2);
  }
  EXPECT_GT(uneven, 300);
}

TEST_F(HalvixTest, TheMinimalHostOfTheDocumentShowsTheModuleAndLeaves) {
  ASSERT_EQ(CreateProfile(paths_.dir, ShareDir(), CodePage::Korean(), "KOR"), std::nullopt);
  fs::create_symlink(MODULE, paths_.module);
  Program host(MINIMAL_HOST, {QString::fromStdString(paths_.module),
                              QString::fromStdString(ShareDir() + "/image.ini")});
  EXPECT_EQ(host.Finish(), 0) << host.err.toStdString();
}

}  // namespace
}  // namespace feedloom
