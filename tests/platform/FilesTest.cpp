// Whole and temporary files, their paths, the registry's file, and the proxy that it holds.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "kit/TempFolder.h"
#include "platform/Path.h"
#include "platform/ProxySettings.h"
#include "platform/Registry.h"
#include "platform/RegistryFile.h"
#include "platform/Rows.h"
#include "platform/TempFile.h"
#include "platform/WholeFile.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

TEST(PathTest, JoinsWithTheSeparatorThatTheDirectoryUses) {
  ExpectRows([](auto& directory) { return JoinPath(directory, "a.xml"); },
             {"/var -> /var/a.xml", "/var/ -> /var/a.xml", R"(C:\work -> C:\work\a.xml)",
              R"(C:\work\ -> C:\work\a.xml)", " -> a.xml"});
}

class WholeFileTest : public testing::Test {
 protected:
  // Saves "new" at a place of the user's; the failure.
  std::string Save(const std::string& path) { return SaveFile(path, "new").value_or(""); }

  std::string WayTo(const std::string& name) { return "'" + folder_.File(name) + "': "; }

  const TempFolder folder_;
};

TEST_F(WholeFileTest, AUsersFileIsReplacedWholeBehindItsLinksAndNoOtherIsTouched) {
  const std::string name(255, 'n');
  folder_.Write(name, "a longer old text");
  folder_.Write("link.new", "the user's own");
  chmod(folder_.File(name).c_str(), 0640);
  fs::create_symlink(name, folder_.File("link"));
  fs::create_symlink("link", folder_.File("chain"));
  fs::create_symlink(folder_.File("none yet"), folder_.File("dangling"));
  for (const char* link : {"chain", "dangling"}) EXPECT_EQ(Save(folder_.File(link)), "");
  EXPECT_EQ(folder_.Read(name) + folder_.Read("none yet"), "newnew");
  EXPECT_EQ(folder_.Read("link.new"), "the user's own");
  EXPECT_EQ(fs::symlink_status(folder_.File(name)).permissions(), fs::perms{0640});
  for (const char* link : {"chain", "link", "dangling"}) {
    EXPECT_TRUE(fs::is_symlink(folder_.File(link))) << link;
  }
  EXPECT_EQ(folder_.Names(), (Names{"chain", "dangling", "link", "link.new", name, "none yet"}));
}

TEST_F(WholeFileTest, AUsersPipeIsWrittenTo) {
  ASSERT_EQ(mkfifo(folder_.File("pipe").c_str(), 0600), 0);
  std::thread reader([this] { EXPECT_EQ(folder_.Read("pipe"), "new"); });
  EXPECT_EQ(Save(folder_.File("pipe")), "");
  reader.join();
  EXPECT_TRUE(fs::is_fifo(folder_.File("pipe")));
}

TEST_F(WholeFileTest, AFileOfTheProgramIsForItsUserAloneAndReplacesALink) {
  folder_.Write("target", "old");
  fs::create_symlink("target", folder_.File("link"));
  EXPECT_FALSE(WriteFileWhole(folder_.File("link"), "new"));
  EXPECT_EQ(folder_.Read("link") + folder_.Read("target"), "newold");
  EXPECT_EQ(fs::symlink_status(folder_.File("link")).permissions(), fs::perms{0600});
}

TEST_F(WholeFileTest, AFailureIsToldAndLeavesEverythingAsItWas) {
  const std::string inTheWay = ".feedloom-" + std::to_string(getpid()) + ".new";
  fs::create_directory(folder_.File(inTheWay));
  EXPECT_EQ(Save(folder_.Write("list", "old")),
            "Cannot create the file " + WayTo(inTheWay) + "File exists.");
  EXPECT_EQ(WriteFileWhole(folder_.File(inTheWay), ""),
            "Cannot create the file " + WayTo(inTheWay) + "Is a directory.");
  EXPECT_EQ(Save("/dev/full"), "Cannot write the file '/dev/full': No space left on device.");
  EXPECT_EQ(folder_.Read("list"), "old");
  EXPECT_EQ(folder_.Names(), (Names{inTheWay, "list"}));
}

TEST_F(WholeFileTest, ATemporaryFileIsRemovedAtItsEnd) {
  { const TempFile file(folder_.Write("feed.xml", "x")); }
  EXPECT_EQ(folder_.Names(), Names{});
}

TEST(RegistryFileTest, EveryTextAndNumberComesBackAsItWas) {
  const std::vector<RegistryEntry> entries{{"HKEY_A", "Empty", ""},
                                           {"HKEY_A", "Path", R"(C:\skin\"new")"},
                                           {"HKEY_A", "Lines", "one\r\ntwo\\n ; [x] = "},
                                           {"HKEY_B", R"(odd "name"=\)", 0xFFFFFFFFu},
                                           {"HKEY_B", "Korean", "똠방각하"}};
  EXPECT_EQ(ParseRegistryFile(FormatRegistryFile(entries)), entries);
}

TEST(RegistryFileTest, ReadsWhatAPersonMayWriteAndRefusesEveryOtherLine) {
  EXPECT_EQ(ParseRegistryFile("REGEDIT4\r\n\r\n; a remark\r\n  [HKEY_X]  \r\n\"N\"=dword:F\r\n"
                              "\t\"S\"=\" a \"\r\n[HKEY_Y]"),
            (std::vector<RegistryEntry>{{"HKEY_X", "N", 15u}, {"HKEY_X", "S", " a "}}));
  EXPECT_EQ(ParseRegistryFile(""), std::vector<RegistryEntry>());
  for (const std::string line :
       {R"(word)", R"("n")", R"("n"=)", R"("n"=word)", R"("n"="open)", R"("n"="x" y)", R"("n"="x\)",
        R"("n"=dword:)", R"("n"=dword:12x)", R"("n"=dword:100000000)", R"("n"=dword:-1)",
        R"(n="x")", R"([open)"}) {
    EXPECT_FALSE(ParseRegistryFile("[HKEY_X]\n" + line)) << line;
  }
  EXPECT_FALSE(ParseRegistryFile(R"("n"="a value without a key")"));
}

class RegistryTest : public testing::Test {
 protected:
  using Number = std::optional<std::uint32_t>;

  static std::string Text(const std::string& line) { return "REGEDIT4\n\n[KEY]\n" + line + "\n"; }
  static std::string Text(int n) { return Text("\"N\"=dword:0000000" + std::to_string(n)); }
  // Replaces the file by one that was written long ago.
  void MakeOldFile(const std::string& text) const {
    folder_.Write("registry", text);
    fs::last_write_time(path_, fs::file_time_type::clock::now() - std::chrono::hours(1));
  }

  const TempFolder folder_;
  const std::string path_ = folder_.File("registry");
  const Registry registry_{path_};
};

TEST_F(RegistryTest, KeepsTypedValuesUnderNamesInAnyCase) {
  EXPECT_EQ(registry_.ReadDword("KEY", "N"), Number());
  EXPECT_TRUE(registry_.IsReadable());
  ASSERT_TRUE(registry_.WriteString("KEY", "Dir", R"(C:\그림\"x" 1,2)"));
  ASSERT_TRUE(registry_.WriteString("KEY", "Mode", "1"));
  ASSERT_TRUE(registry_.WriteDword("key", "MODE", 0xFFFFFFFF));
  EXPECT_EQ(registry_.ReadString("kEY", "dIR"), R"(C:\그림\"x" 1,2)");
  EXPECT_EQ(registry_.ReadDword("KEY", "Mode"), 0xFFFFFFFF);
  EXPECT_EQ(registry_.ReadString("KEY", "Mode"), std::nullopt);
  EXPECT_EQ(registry_.ReadDword("KEY", "Dir"), Number());
  EXPECT_EQ(registry_.ReadDword("OTHER", "Mode"), Number());
  EXPECT_EQ(ParseRegistryFile(folder_.Read("registry"))->size(), 2u);
}

TEST_F(RegistryTest, AddsAValueToItsKeyAndLeavesTheOthersAsTheyStand) {
  const std::string other = "\n[OTHER]\n\"A\"=\"x\"\n";
  folder_.Write("registry", Text(1) + other);
  ASSERT_TRUE(registry_.WriteString("key", "CP", "UTF-8") && registry_.WriteDword("NEW", "M", 10));
  EXPECT_EQ(folder_.Read("registry"),
            Text(1) + "\"CP\"=\"UTF-8\"\n" + other + "\n[NEW]\n\"M\"=dword:0000000a\n");
}

TEST_F(RegistryTest, SeesAtOnceAndKeepsWhatAnotherProgramWrote) {
  const Registry other(path_);
  for (std::uint32_t n = 1; n <= 9; ++n) {
    ASSERT_TRUE(other.WriteDword("KEY", "N", 10 * n));
    EXPECT_EQ(registry_.ReadDword("KEY", "N"), 10 * n);
    folder_.Write("registry", Text(static_cast<int>(n)));
    EXPECT_EQ(registry_.ReadDword("KEY", "N"), n);
    ASSERT_TRUE(registry_.WriteDword("KEY", "Own", n));
    EXPECT_EQ(other.ReadDword("KEY", "N"), n);
  }
}

// A file that has not been written for a while is not read again until it has changed.
TEST_F(RegistryTest, SeesEveryChangeOfAnOldFile) {
  const Registry copy = registry_;
  const auto expect = [&](Number n) {
    for (int again = 1; again <= 2; ++again) EXPECT_EQ(copy.ReadDword("KEY", "N"), n);
    EXPECT_EQ(registry_.ReadDword("KEY", "N"), n);
  };
  for (const int n : {1, 2}) {
    MakeOldFile(Text(n));
    expect(n);
  }
  ASSERT_TRUE(registry_.WriteDword("KEY", "N", 4));
  expect(4);
  MakeOldFile("half a li");
  expect({});
  EXPECT_FALSE(registry_.IsReadable());
  fs::remove(path_);
  expect({});
  EXPECT_TRUE(copy.IsReadable());
}

TEST_F(RegistryTest, WritesFromSeveralThreadsAllSurvive) {
  const auto write = [this](int from) {
    for (int i = from; i < from + 10; ++i) {
      EXPECT_TRUE(Registry(path_).WriteDword("KEY", std::to_string(i), 0));
    }
  };
  { const std::jthread a(write, 0), b(write, 10), c(write, 20); }
  EXPECT_EQ(ParseRegistryFile(folder_.Read("registry"))->size(), 30u);
}

TEST_F(RegistryTest, AFileThatCannotBeReadOrWrittenIsLeftAlone) {
  folder_.Write("registry", Text("\"N\"=dword:00000007\n\"half a li"));
  for (const std::string& path : {path_, folder_.Path(), std::string("/proc/feedloom.reg")}) {
    const Registry registry(path);
    EXPECT_EQ(registry.IsReadable(), path.starts_with("/proc")) << path;
    for (int attempt = 1; attempt <= 2; ++attempt) {
      EXPECT_FALSE(registry.WriteDword("KEY", "N", 2) || registry.WriteString("KEY", "M", "x"));
      EXPECT_EQ(registry.ReadDword("KEY", "N"), Number()) << path;
    }
  }
  EXPECT_EQ(folder_.Read("registry"), Text("\"N\"=dword:00000007\n\"half a li"));
}

TEST_F(RegistryTest, HoldsTheUsersProxyWhichCountsWhenItIsEnabled) {
  const char* const key =
      R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
  const auto read = [this] {
    const ProxySettings settings = ReadProxySettings(registry_);
    return ProxyFor(settings, "http") + "|" + settings.server + "|" + DirectHosts(settings);
  };
  EXPECT_EQ(read(), "||");
  ASSERT_TRUE(registry_.WriteString(key, "ProxyServer", "proxy:80"));
  ASSERT_TRUE(registry_.WriteString(key, "ProxyOverride", "x; *.y.kr;;<LOCAL>;"));
  ASSERT_TRUE(registry_.WriteDword(key, "ProxyEnable", 0));
  EXPECT_EQ(read(), "||");
  ASSERT_TRUE(registry_.WriteDword(key, "ProxyEnable", 1));
  EXPECT_EQ(read(), "proxy:80|proxy:80|x,.y.kr,localhost,127.0.0.1");
  EXPECT_EQ(DirectHosts({true, "", "*"}), "*");
  EXPECT_EQ(ProxyFor({false, "proxy:80", ""}, "http"), "");
  for (const char* scheme : {"http", "https"}) {
    ExpectRows(
        [&](auto& servers) {
          return ProxyFor({true, servers, ""}, scheme);
        },
        {"x:80 -> x:80", " HTTP = h:1 ;https=h:1; -> h:1", "ftp=f:2 -> "});
  }
}

}  // namespace
}  // namespace feedloom
