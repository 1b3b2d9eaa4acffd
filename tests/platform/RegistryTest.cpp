#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "kit/TempFolder.h"
#include "platform/ProxySettings.h"
#include "platform/Registry.h"
#include "platform/RegistryFile.h"

namespace feedloom {
namespace {

constexpr const char* kKey = R"(HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0)";
constexpr const char* kFileName = "registry.reg";

std::string FileWith(const std::string& line) {
  return "REGEDIT4\n\n[" + std::string(kKey) + "]\n" + line + "\n";
}

TEST(RegistryFileTest, EveryTextAndNumberComesBackAsItWas) {
  const std::vector<RegistryEntry> entries{
      {R"(HKEY_CURRENT_USER\Software\A)", "Empty", ""},
      {R"(HKEY_CURRENT_USER\Software\A)", "Path", R"(C:\skin\"new")"},
      {R"(HKEY_CURRENT_USER\Software\A)", "Lines", "one\r\ntwo\\n ; [x] = "},
      {R"(HKEY_CURRENT_USER\Software\B)", R"(odd "name"=\)", 0xFFFFFFFFu},
      {R"(HKEY_CURRENT_USER\Software\B)", "Zero", 0u},
      {R"(HKEY_CURRENT_USER\Software\B)", "Korean", "똠방각하"},
  };
  EXPECT_EQ(ParseRegistryFile(FormatRegistryFile(entries)), entries);
}

TEST(RegistryFileTest, ReadsWhatAPersonMayWrite) {
  const auto entries = ParseRegistryFile(
      "REGEDIT4\r\n\r\n; a remark\r\n  [HKEY_X]  \r\n\"N\"=dword:F\r\n\t\"S\"=\" a \"\r\n[HKEY_Y]");
  const std::vector<RegistryEntry> expected{{"HKEY_X", "N", 15u}, {"HKEY_X", "S", " a "}};
  EXPECT_EQ(entries, expected);
  EXPECT_EQ(ParseRegistryFile(""), std::vector<RegistryEntry>());
}

TEST(RegistryFileTest, RefusesEveryOtherLine) {
  for (const char* line :
       {"word", "\"name\"", "\"name\"=", "\"name\"=word", "\"name\"=\"open", "\"name\"=\"x\" y",
        "\"name\"=\"x\\", "\"name\"=dword:", "\"name\"=dword:12x", "\"name\"=dword:100000000",
        "\"name\"=dword:-1", "name=\"x\""}) {
    EXPECT_FALSE(ParseRegistryFile(FileWith(line))) << line;
  }
  EXPECT_FALSE(ParseRegistryFile("\"name\"=\"a value without a key\""));
}

class RegistryTest : public testing::Test {
 protected:
  const TempFolder folder_;
  const Registry registry_{folder_.File(kFileName)};
};

TEST_F(RegistryTest, WithoutAFileHasNoValuesAndIsReadable) {
  EXPECT_EQ(registry_.ReadDword(kKey, "Period"), std::nullopt);
  EXPECT_EQ(registry_.ReadString(kKey, "Period"), std::nullopt);
  EXPECT_TRUE(registry_.IsReadable());
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(RegistryTest, KeepsValuesWithTheirTypes) {
  ASSERT_TRUE(registry_.WriteDword(kKey, "Period", 0xFFFFFFFF));
  ASSERT_TRUE(registry_.WriteString(kKey, "IMAGEDIR", R"(C:\그림\"x" 1,2)"));
  ASSERT_TRUE(registry_.WriteString(kKey, "Number as text", "15"));

  EXPECT_EQ(registry_.ReadDword(kKey, "Period"), 0xFFFFFFFF);
  EXPECT_EQ(registry_.ReadString(kKey, "IMAGEDIR"), R"(C:\그림\"x" 1,2)");
  EXPECT_EQ(registry_.ReadString(kKey, "Number as text"), "15");
  EXPECT_EQ(registry_.ReadString(kKey, "Period"), std::nullopt);
  EXPECT_EQ(registry_.ReadDword(kKey, "Number as text"), std::nullopt);
  EXPECT_EQ(registry_.ReadDword(R"(HKEY_LOCAL_MACHINE\SOFTWARE\Other)", "Period"), std::nullopt);
}

TEST_F(RegistryTest, AValueMayChangeItsType) {
  ASSERT_TRUE(registry_.WriteDword(kKey, "Mode", 1));
  ASSERT_TRUE(registry_.WriteString(kKey, "Mode", "one"));
  EXPECT_EQ(registry_.ReadDword(kKey, "Mode"), std::nullopt);
  EXPECT_EQ(registry_.ReadString(kKey, "Mode"), "one");
}

TEST_F(RegistryTest, NamesOfKeysAndValuesIgnoreCase) {
  ASSERT_TRUE(registry_.WriteDword(kKey, "Debug Mode", 1));
  ASSERT_TRUE(registry_.WriteDword(R"(hkey_local_machine\software\HALVIX3.0)", "DEBUG MODE", 2));
  EXPECT_EQ(registry_.ReadDword(kKey, "debug mode"), 2u);
  EXPECT_EQ(ParseRegistryFile(folder_.Read(kFileName))->size(), 1u);
}

TEST_F(RegistryTest, AddsAValueToItsKeyAndLeavesTheOthersAsTheyStand) {
  const std::string before = FileWith("\"Debug Mode\"=dword:00000001");
  const std::string after = "\n[HKEY_CURRENT_USER\\Other]\n\"A\"=\"x\"\n";
  folder_.Write(kFileName, before + after);
  ASSERT_TRUE(
      registry_.WriteString(R"(hkey_local_machine\SOFTWARE\Halvix3.0)", "CODEPAGE", "UTF-8"));
  EXPECT_EQ(folder_.Read(kFileName), before + "\"CODEPAGE\"=\"UTF-8\"\n" + after);
}

TEST_F(RegistryTest, SeesAtOnceWhatAnotherProgramWrote) {
  const Registry other(folder_.File(kFileName));
  for (std::uint32_t value = 0; value < 10; ++value) {
    ASSERT_TRUE(other.WriteDword(kKey, "Period", value));
    EXPECT_EQ(registry_.ReadDword(kKey, "Period"), value);
    folder_.Write(kFileName, FileWith("\"Period\"=dword:0000001" + std::to_string(value)));
    EXPECT_EQ(registry_.ReadDword(kKey, "Period"), 0x10 + value);
  }
}

// A file that has not been written for a while is not read again until it has changed.
TEST_F(RegistryTest, SeesEveryChangeOfAnOldFile) {
  const std::string path = folder_.File(kFileName);
  const auto isOld = [&] {
    std::filesystem::last_write_time(
        path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  };
  const Registry copy = registry_;
  const auto expect = [&](std::optional<std::uint32_t> value) {
    for (int again = 1; again <= 2; ++again) {
      EXPECT_EQ(registry_.ReadDword(kKey, "Period"), value);
      EXPECT_EQ(copy.ReadDword(kKey, "Period"), value);
    }
  };
  folder_.Write(kFileName, FileWith("\"Period\"=dword:00000001"));
  isOld();
  expect(1);
  folder_.Write(kFileName, FileWith("\"Period\"=dword:00000002"));  // as long as before
  isOld();
  expect(2);
  folder_.Write("other", FileWith("\"Period\"=dword:00000003"));
  std::filesystem::rename(folder_.File("other"), path);
  isOld();
  expect(3);
  ASSERT_TRUE(registry_.WriteDword(kKey, "Period", 4));
  expect(4);
  isOld();
  folder_.Write(kFileName, "half a li");
  isOld();
  expect(std::nullopt);
  EXPECT_FALSE(registry_.IsReadable());
  std::filesystem::remove(path);
  expect(std::nullopt);
  EXPECT_TRUE(copy.IsReadable());
}

TEST_F(RegistryTest, KeepsWhatAnotherProgramWroteWhenItWritesItself) {
  for (char digit = '0'; digit <= '9'; ++digit) {
    ASSERT_TRUE(registry_.WriteDword(kKey, "Own", 1));
    folder_.Write(kFileName, FileWith("\"Other\"=dword:0000000" + std::string(1, digit) +
                                      "\n\"Own\"=dword:00000001"));
    ASSERT_TRUE(registry_.WriteDword(kKey, "Own", 2));
    EXPECT_EQ(registry_.ReadDword(kKey, "Other"), static_cast<std::uint32_t>(digit - '0'));
  }
}

TEST_F(RegistryTest, WritesFromSeveralThreadsAllSurvive) {
  constexpr std::uint32_t kThreads = 4;
  constexpr std::uint32_t kValues = 10;
  std::vector<std::jthread> threads;
  for (std::uint32_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([this, thread] {
      const Registry own(folder_.File(kFileName));
      for (std::uint32_t i = 0; i < kValues; ++i) {
        EXPECT_TRUE(own.WriteDword(kKey, std::to_string(thread * kValues + i), i));
      }
    });
  }
  threads.clear();
  EXPECT_EQ(ParseRegistryFile(folder_.Read(kFileName))->size(), kThreads * kValues);
}

TEST_F(RegistryTest, NeverReplacesADamagedFile) {
  const std::string damaged = FileWith("\"Period\"=dword:0000000f\n\"half a li");
  ASSERT_TRUE(registry_.WriteDword(kKey, "Period", 1));
  folder_.Write(kFileName, damaged);
  for (int attempt = 1; attempt <= 3; ++attempt) {
    EXPECT_FALSE(registry_.IsReadable()) << "attempt " << attempt;
    EXPECT_EQ(registry_.ReadDword(kKey, "Period"), std::nullopt) << "attempt " << attempt;
    EXPECT_FALSE(registry_.WriteDword(kKey, "Period", 2)) << "attempt " << attempt;
    EXPECT_FALSE(registry_.WriteString(kKey, "Other", "x")) << "attempt " << attempt;
  }
  EXPECT_EQ(folder_.Read(kFileName), damaged);
}

TEST_F(RegistryTest, AWriteThatFailsLeavesNoTrace) {
  const Registry unwritable("/proc/feedloom.reg");
  EXPECT_FALSE(unwritable.WriteDword(kKey, "Period", 1));
  EXPECT_EQ(unwritable.ReadDword(kKey, "Period"), std::nullopt);

  const Registry nowhere(folder_.Write("file", "") + "/registry.reg");
  EXPECT_FALSE(nowhere.WriteString(kKey, "Name", "x"));
  EXPECT_EQ(nowhere.ReadString(kKey, "Name"), std::nullopt);
}

TEST_F(RegistryTest, AnUnreadableFileIsNeitherReadNorReplaced) {
  const Registry folderInstead(folder_.Path());
  EXPECT_FALSE(folderInstead.IsReadable());
  EXPECT_FALSE(folderInstead.WriteDword(kKey, "Period", 1));
  EXPECT_EQ(folderInstead.ReadDword(kKey, "Period"), std::nullopt);
}

class ProxySettingsTest : public RegistryTest {
 protected:
  void Store(std::uint32_t enable, const std::string& server, const std::string& bypass) const {
    ASSERT_TRUE(registry_.WriteDword(kProxyKey, "ProxyEnable", enable));
    ASSERT_TRUE(registry_.WriteString(kProxyKey, "ProxyServer", server));
    ASSERT_TRUE(registry_.WriteString(kProxyKey, "ProxyOverride", bypass));
  }

  static constexpr const char* kProxyKey =
      R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
};

TEST_F(ProxySettingsTest, AreEmptyUntilTheProxyIsEnabled) {
  EXPECT_FALSE(ReadProxySettings(registry_).enabled);
  Store(0, "proxy:80", "*.example");
  const ProxySettings off = ReadProxySettings(registry_);
  EXPECT_EQ(off.server + off.bypass, "");
  EXPECT_EQ(ProxyFor(off, "http"), "");

  Store(1, "proxy:80", "*.example");
  const ProxySettings on = ReadProxySettings(registry_);
  EXPECT_TRUE(on.enabled);
  EXPECT_EQ(on.server, "proxy:80");
  EXPECT_EQ(on.bypass, "*.example");
}

TEST_F(ProxySettingsTest, ChooseTheProxyByScheme) {
  const ProxySettings one{true, "proxy:80", ""};
  EXPECT_EQ(ProxyFor(one, "http"), "proxy:80");
  EXPECT_EQ(ProxyFor(one, "https"), "proxy:80");

  const ProxySettings list{true, "ftp=f:21; HTTP = h:80 ;https=s:443;", ""};
  EXPECT_EQ(ProxyFor(list, "http"), "h:80");
  EXPECT_EQ(ProxyFor(list, "https"), "s:443");
  EXPECT_EQ(ProxyFor({true, "ftp=f:21", ""}, "http"), "");
}

TEST_F(ProxySettingsTest, ListTheHostsThatAreReachedDirectly) {
  EXPECT_EQ(DirectHosts({true, "proxy:80", ""}), "");
  EXPECT_EQ(DirectHosts({true, "proxy:80", "intra.example; *.korea.example;;<LOCAL>;"}),
            "intra.example,.korea.example,localhost,127.0.0.1");
  EXPECT_EQ(DirectHosts({true, "proxy:80", "*"}), "*");
}

}  // namespace
}  // namespace feedloom
