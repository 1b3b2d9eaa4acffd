// The program's life: a profile, a module in a window, an end.

#include <signal.h>
#include <unistd.h>

#include <QImage>
#include <filesystem>
#include <utility>

#include "host/HalvixFixture.h"
#include "platform/Registry.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

class HalvixTest : public HalvixFixture {
 protected:
  std::string RegistryText(const char* name) const {
    return Registry(paths_.registry).ReadString(kHostKey, name).value_or("(none)");
  }
};

TEST_F(HalvixTest, TellsItsOptionsAndItsVersion) {
  const HalvixResult help = RunningHalvix({"--help"}).Finish();
  EXPECT_EQ(help.status, 0);
  for (const char* option :
       {"--profile", "--lang", "--code-page", "--screenshot", "--timings", "--version"}) {
    EXPECT_TRUE(help.out.contains(option)) << option;
  }
  const HalvixResult version = RunningHalvix({"--version"}).Finish();
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "halvix " FEEDLOOM_VERSION "\n");
  EXPECT_EQ(Run({"--lang", "FRA"}).status, 2);
  EXPECT_FALSE(ProfileExists(paths_));
}

TEST_F(HalvixTest, MakesAProfileAndRefreshesItsChannelsOnce) {
  UseFakeModule();
  EXPECT_EQ(RunOnce({"--lang", "eng", "--code-page", "utf-8"}),
            "loaded early\nwindow on screen\ntext &Quit\nskin rss_html/main_ENG.html\nmessage "
            "307c\nidle\ndestroyed\n");
  EXPECT_EQ(RegistryText(kValueCodePage), "UTF-8");
  EXPECT_EQ(RunOnce(),
            "loaded early\nwindow on screen\ntext &Quit\nskin rss_html/main_ENG.html\nidle\n"
            "destroyed\n");
}

TEST_F(HalvixTest, ChangesTheLanguageOfAProfileButNotItsCodePage) {
  UseFakeModule();
  RunOnce({"--code-page", "UTF-8"});
  EXPECT_TRUE(RunOnce({"--lang", "ENG", "--code-page", "UTF-8"}).contains("text &Quit\n"));
  ExpectRefused("keeps its texts in UTF-8; only a new profile can have EUC-KR.",
                {"--lang", "KOR", "--code-page", "EUC-KR"});
  EXPECT_TRUE(RunOnce().contains("text &Quit\n"));
  EXPECT_TRUE(RunOnce({"--lang", "kor"}).contains("text 끝내기(&Q)\n"));
}

TEST_F(HalvixTest, IsShownAnewInTheLooksThatTheMenuOffers) {
  UseFakeModule();
  RunOnce({"--code-page", "UTF-8"});
  for (const auto& [entry, told] : {std::pair{"어두운 화면(&D)", "text 끝내기(&Q)\n"},
                                    std::pair{"English(&E)", "text &Quit\n"}}) {
    qputenv("FAKE_MODULE_CHOOSES", entry);
    const auto halvix = Start();
    qunsetenv("FAKE_MODULE_CHOOSES");
    ASSERT_TRUE(halvix->WaitForLine("loaded early", 2)) << entry;
    halvix->Signal(SIGTERM);
    const QString out = halvix->Finish().out;
    EXPECT_TRUE(out.contains(QString("idle\ndestroyed\nloaded early\nwindow on screen\n") + told))
        << entry << '\n'
        << out.toStdString();
    EXPECT_TRUE(out.endsWith("destroyed\n"));
  }
  EXPECT_EQ(RegistryText(kValueImageDir), ShareDir() + "/skin/dark");
  EXPECT_EQ(RegistryText(kValueCurrentPath), ShareDir() + "/skin/dark");
  EXPECT_EQ(RegistryText(kValueLanguage), "ENG");
}

TEST_F(HalvixTest, IsAloneOnItsProfileButForTheCommandLine) {
  UseFakeModule();
  const auto first = Start();
  ASSERT_TRUE(first->WaitForLine("idle"));
  ExpectRefused("is in use by another halvix.");
  EXPECT_EQ(
      QProcess::execute(FEEDLOOMCTL, {"--profile", QString::fromStdString(paths_.dir), "refresh"}),
      0);
  first->Kill();
  EXPECT_TRUE(RunOnce().contains("destroyed"));
}

TEST_F(HalvixTest, EndsInOrderOnEachRequest) {
  UseFakeModule();
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const auto halvix = Start();
    ASSERT_TRUE(halvix->WaitForLine("idle"));
    halvix->Signal(number);
    const HalvixResult result = halvix->Finish();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.count("destroyed"), 1);
  }
}

TEST_F(HalvixTest, RemembersItsPlace) {
  UseFakeModule();
  RunOnce();
  const std::string geometry = RegistryText(kValueWindowGeometry);
  EXPECT_GT(geometry.size(), 50u);
  RunOnce();
  EXPECT_EQ(RegistryText(kValueWindowGeometry), geometry);
}

TEST_F(HalvixTest, RefusesADamagedProfile) {
  UseFakeModule();
  RunOnce();
  const std::string registry = ReadFile(paths_.registry).value();
  ASSERT_FALSE(WriteFileWhole(paths_.registry, "not a registry"));
  ExpectRefused("registry.reg' cannot be read or is damaged.");
  ASSERT_FALSE(WriteFileWhole(paths_.registry, registry));

  std::filesystem::rename(paths_.database, paths_.database + ".bak");
  ExpectRefused("rssdb' is missing. There is a copy of it: '");
  ASSERT_FALSE(WriteFileWhole(paths_.database, "not a database"));
  ExpectRefused("rssdb' cannot be read or is damaged.");
}

TEST_F(HalvixTest, RefusesAPlaceWhereNoProfileCanBe) {
  ASSERT_FALSE(WriteFileWhole(paths_.dir, "a file"));
  ExpectRefused("Not a directory.");
  EXPECT_EQ(ReadFile(paths_.dir), "a file");
}

TEST_F(HalvixTest, RefusesAProfileWhereItCannotWrite) {
  if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
  UseFakeModule();
  RunOnce();
  using std::filesystem::perms;
  std::filesystem::permissions(paths_.moduleDir, perms::owner_read | perms::owner_exec);
  ExpectRefused("Permission denied.");
  std::filesystem::permissions(paths_.moduleDir, perms::owner_all);
}

TEST_F(HalvixTest, RefusesAModuleThatIsNone) {
  UseFakeModule();
  RunOnce();
  ASSERT_FALSE(WriteFileWhole(paths_.module, "not a library"));
  ExpectRefused("file too short.");
  UseModule(EMPTY_MODULE);
  ExpectRefused("undefined symbol: Create.");
  UseFakeModule();
  qputenv("FAKE_MODULE", "null");
  ExpectRefused("The module cannot make its window.");
  qunsetenv("FAKE_MODULE");
}

TEST_F(HalvixTest, TellsHowLongItsStartTakes) {
  UseFakeModule();
  const std::string picture = folder_.File("window.png");
  const QString told = Run({"--timings", "--screenshot", QString::fromStdString(picture)}).err;
  qsizetype at = 0;
  for (const char* step : {"ms: profile opened", "ms: window painted", "ms: module's frame made",
                           "ms: page shown", "ms: page shown"}) {
    at = told.indexOf(step, at) + 1;
    ASSERT_GT(at, 0) << step << " in\n" << told.toStdString();
  }
}

TEST_F(HalvixTest, NeedsADisplay) {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const QByteArray display = qgetenv("DISPLAY");
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) qunsetenv(name);
  ExpectRefused("No display");
  qputenv("QT_QPA_PLATFORM", platform);
  EXPECT_FALSE(ProfileExists(paths_));
}

TEST_F(HalvixTest, TakesThePictureOfTheChosenRow) {
  UseFakeModule();
  const std::string file = folder_.File("window.png");
  const HalvixResult result = Run({"--screenshot", QString::fromStdString(file)});
  EXPECT_EQ(result.status, 0) << result.err.toStdString();
  EXPECT_FALSE(result.out.contains("message")) << result.out.toStdString();
  EXPECT_TRUE(result.out.endsWith("destroyed\n"));
  const QImage picture(QString::fromStdString(file));
  ASSERT_EQ(picture.size(), QSize(1024, 700));
  EXPECT_EQ(picture.pixelColor(512, 350), QColor(Qt::blue));
  EXPECT_EQ(RegistryText(kValueWindowGeometry), "(none)");
}

TEST_F(HalvixTest, SaysThatThePictureCannotBeWritten) {
  UseFakeModule();
  const HalvixResult result = Run({"--screenshot", "/nowhere/window.png"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.err.contains("Cannot write the picture '/nowhere/window.png': "))
      << result.err.toStdString();
  EXPECT_TRUE(result.out.endsWith("destroyed\n"));
}

}  // namespace
}  // namespace feedloom
