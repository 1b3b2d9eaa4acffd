// Whole files, and the registry's file.
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "files/Registry.h"
#include "files/RegistryFile.h"
#include "files/WholeFile.h"
#include "kit/Rows.h"
#include "kit/TempFolder.h"
#include "text/Text.h"

namespace feedloom {

namespace fs = std::filesystem;

static int diskError = 0;  // that the disk tells instead of keeping a file
static std::atomic<int> syncs = 0;
extern "C" int fsync(int handle) {
  ++syncs;
  errno = diskError;
  return diskError == 0 ? fdatasync(handle) : -1;
}

struct FilesTest : testing::Test {
  std::string Save(const char* name) { return SaveFile(folder_.File(name), "new").value_or(""); }

  // All files of the folder, links with an "@", and the start of what is in them.
  std::string Listing() const {
    std::string listing;
    for (const std::string& name : folder_.Names())
      listing += (fs::is_symlink(folder_.File(name)) ? "@" : " ") + name.substr(0, 8) + "=" +
                 folder_.Read(name).substr(0, 8);
    return listing;
  }

  static std::string Text(int n) { return "[K]\n\"N\"=dword:" + std::to_string(n); }

  const TempFolder folder_;
  const std::string path_ = folder_.File("registry");
  const Registry registry_{path_};
};

TEST_F(FilesTest, AUsersFileIsReplacedBehindItsLinksAndNoOtherIsTouched) {
  const std::string name(255, 'n');
  chmod(folder_.Write(name, "a longer old text").c_str(), 0640);
  folder_.Write("link.new", "own");
  fs::create_symlink(name, folder_.File("link"));
  fs::create_symlink("link", folder_.File("chain"));
  fs::create_symlink(folder_.File("not yet"), folder_.File("dangling"));
  EXPECT_EQ(Save("chain") + Save("dangling"), "");
  EXPECT_EQ(Listing(), "@chain=new@dangling=new@link=new link.new=own nnnnnnnn=new not yet=new");
  EXPECT_EQ(fs::status(folder_.File(name)).permissions(), fs::perms{0640});
  mkfifo(folder_.File("pipe").c_str(), 0600);
  std::jthread reader([this] { EXPECT_EQ(folder_.Read("pipe"), "new"); });
  EXPECT_EQ(Save("pipe"), "") << "it cannot be synchronized";
}

TEST_F(FilesTest, AFileOfTheProgramIsForItsUserAloneAndAFailureLeavesNoTrace) {
  folder_.Write("old", "old");
  fs::create_symlink("old", folder_.File("list"));
  EXPECT_EQ(WriteFileWhole(folder_.File("list"), "new"), std::nullopt);
  EXPECT_EQ(Listing(), " list=new old=old");
  EXPECT_EQ(fs::status(folder_.File("list")).permissions(), fs::perms{0600});
  const std::string path = folder_.File(".feedloom-" + std::to_string(getpid()) + ".new");
  diskError = EIO;
  EXPECT_EQ(Save("list"), "Cannot write the file '" + path + "': Input/output error.");
  diskError = 0;
  fs::create_directory(path);
  EXPECT_EQ(Save("list"), "Cannot create the file '" + path + "': File exists.");
  EXPECT_EQ(WriteFileWhole(path, "x"), "Cannot create the file '" + path + "': Is a directory.");
  EXPECT_EQ(folder_.Names().size(), 3u);
}

TEST_F(FilesTest, ARegistryIsReadAsAPersonMayWriteItOrRefused) {
  const auto rewrite = [](const std::string& text) {
    const auto entries = ParseRegistryFile("[K]\n" + text);
    return entries ? ReplaceAll(FormatRegistryFile(*entries), "\n", "|").substr(10) : "refused";
  };
  ExpectRows(
      rewrite,
      {"; a remark\r\n\r\n  [X]  \r\n\"N\"=dword:F\r\n\t\"S\"=\" a \"\r\n[Y] -> "
       "[X]|\"N\"=dword:0000000f|\"S\"=\" a \"|",
       R"("o \"n\"=\\"="C:\\x\"y\"\r\n; [x] = " -> [K]|"o \"n\"=\\"="C:\\x\"y\"\r\n; [x] = "|)"});
  for (const char* line :
       {"word", R"("n")", R"("n"=)", R"("n":"x")", R"("n"=w)", R"("n"="o)", R"("n"="x" y)",
        R"("n"="x\)", R"("n"=dword:)", R"("n"=dword:12x)", R"(n="x")", R"("n"=dword:100000000)",
        R"("n"=dword:-1)", "[o", "[]\n\"n\"=\"x\""})
    EXPECT_EQ(rewrite(line), "refused") << line;
}

TEST_F(FilesTest, ARegistryKeepsTypedValuesUnderNamesInAnyCaseWhereTheyStand) {
  EXPECT_TRUE(!registry_.ReadDword("K", "N") && registry_.IsReadable());
  folder_.Write("registry", Text(1) + "\n[O]\n\"A\"=\"x\"");
  ASSERT_TRUE(registry_.WriteString("k", "Dir", "한\r\n") && registry_.WriteDword("P", "M", 10));
  ASSERT_TRUE(registry_.WriteString("O", "a", "10") && registry_.WriteDword("k", "n", 0xFFFFFFFF));
  EXPECT_EQ(folder_.Read("registry"),
            "REGEDIT4\n\n[K]\n\"N\"=dword:ffffffff\n\"Dir\"=\"한\\r\\n\"\n"
            "\n[O]\n\"A\"=\"10\"\n\n[P]\n\"M\"=dword:0000000a\n");
  EXPECT_EQ(registry_.ReadString("K", "dIR"), "한\r\n");
  EXPECT_EQ(registry_.ReadDword("K", "N"), 0xFFFFFFFF);
  EXPECT_FALSE(registry_.ReadString("K", "N") || registry_.ReadDword("O", "A"));
}

TEST_F(FilesTest, ARegistrySeesAtOnceAndKeepsWhatAnotherProgramWrote) {
  const Registry other(path_);
  for (const int n : {1, 2}) {
    folder_.Write("registry", Text(n));
    EXPECT_EQ(registry_.ReadDword("K", "N"), n);
    ASSERT_TRUE(registry_.WriteDword("K", "Own", 3));
    EXPECT_EQ(other.ReadDword("K", "N"), n);
  }
}

TEST_F(FilesTest, ARegistryKeepsWhatSeveralThreadsWriteAfterAProgramThatWasKilledAtOnce) {
  const std::string lock = folder_.Write("registry.lock", "");
  fs::last_write_time(lock, fs::file_time_type::clock::now() - std::chrono::seconds(2));
  std::vector<std::jthread> threads;
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"})
    threads.emplace_back([=, this] { EXPECT_TRUE(Registry(path_).WriteDword("K", name, 0)); });
  threads.clear();
  EXPECT_EQ(ParseRegistryFile(folder_.Read("registry"))->size(), 12u);
}

TEST_F(FilesTest, ARegistryLockedElsewhereIsWaitedForOnceWithAllValuesAndThenKeepsNone) {
  const int lock = open(folder_.Write("registry.lock", "").c_str(), O_RDONLY);
  flock(lock, LOCK_EX);
  const std::vector<RegistryEntry> values(14, {"K", "N", 1u});
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(registry_.Write(values));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5 + 5)) << "two waits";
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"registry.lock"});
  close(lock);
  syncs = 0;
  EXPECT_TRUE(registry_.Write({{"K", "N", 1u}, {"K", "S", "s"}, {"k", "n", "2"}}) && syncs == 1);
  EXPECT_EQ(folder_.Read("registry"), "REGEDIT4\n\n[K]\n\"N\"=\"2\"\n\"S\"=\"s\"\n");
}

TEST_F(FilesTest, ARegistryThatCannotBeReadOrWrittenIsLeftAlone) {
  ASSERT_TRUE(registry_.WriteDword("K", "N", 1));
  folder_.Write("registry", Text(7) + "\n\"half a li");
  for (const std::string& path : {path_, folder_.Path(), std::string("/proc/feedloom.reg")}) {
    EXPECT_EQ(Registry(path).IsReadable(), path.starts_with("/proc")) << path;
    EXPECT_FALSE(Registry(path).WriteDword("K", "N", 2) || Registry(path).ReadDword("K", "N"));
  }
  EXPECT_FALSE(registry_.ReadDword("K", "N"));
  EXPECT_EQ(folder_.Read("registry"), Text(7) + "\n\"half a li");
}

}  // namespace feedloom
