// Downloads with the real engine and a real server, and the names of their files.
#include <sys/resource.h>

#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <csignal>

#include "ui/browser/BrowserFixture.h"
#include "ui/browser/DownloadFiles.h"

namespace feedloom {

const std::string kLong(32 << 20, 'x');  // not here at once

struct DownloadsTest : BrowserFixture {
  DownloadsTest() {
    frame_.services.askSavePath = [this](auto& name, auto&) { return asked_ << name, place_(); };
    Write("a page");
  }
  void Download(const char* path) {
    Click(QPoint(5, 5));
    Page().download(Url(path));
  }
  std::string Message(const char* key, const std::string& name) const {
    std::string text = HostText(key);
    return text.replace(text.find("%s"), 2, name);
  }
  bool Ends(const char* key, const std::string& name) {
    frame_.messages.clear();
    return ComesTrue([&] { return IsLastMessageWith(Message(key, name)); }) &&
           !view_.IsDownloading();
  }
  // The engine removes its files and requests in its own time.
  bool FolderComesToHold(const std::vector<std::string>& names) {
    return ComesTrue([&] {
      return folder_.Names() == names && !Page().profile()->findChild<QWebEngineDownloadRequest*>();
    });
  }

  std::function<QString()> place_ = [this] { return FilePath("saved.bin"); };
  QStringList asked_;
};

TEST_F(DownloadsTest, AFileTakesTheOldOnesPlaceOnlyWhenItIsWhole) {
  folder_.Write("saved.bin", "old");
  server_.BreakOff("/broken", std::string(100'000, 'x'));
  server_.Serve("/dir/file.bin", kLong);
  // No file of this process grows further, as if the disk were full then.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit full{8 << 20, before.rlim_max};
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &full);
  for (const char* const path : {"/broken", "/dir/file.bin"}) {
    Download(path);
    EXPECT_TRUE(Ends(kTextDownloadFailed, "saved.bin")) << path;
    EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
    EXPECT_EQ(folder_.Read("saved.bin"), "old");
  }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  place_ = [this] { return asked_.size() == 3 ? QString() : FilePath("saved.bin"); };
  Download("/dir/file.bin");  // the user cancels
  EXPECT_TRUE(ComesTrue([&] { return asked_.size() == 3; }));
  Download("/dir/file.bin");
  EXPECT_TRUE(Ends(kTextDownloaded, "saved.bin"));
  EXPECT_EQ(folder_.Read("saved.bin"), kLong);
  EXPECT_EQ(asked_, (QStringList{"broken", "file.bin", "file.bin", "file.bin"}));
  const auto isWhole = [](const std::string& message) { return message.ends_with("(100%)"); };
  EXPECT_EQ(std::ranges::count_if(frame_.messages, isWhole), 1);
}

TEST_F(DownloadsTest, OneThatIsStoppedLeavesNothingAndOthersAreWhole) {
  server_.Serve("/quick", "quick");
  place_ = [this] { return FilePath(asked_.back()); };
  server_.Endless("/slow.bin");
  Download("/slow.bin");
  EXPECT_TRUE(ComesTrue([&] { return IsLastMessageWith("B)"); }));  // a size, not a percentage
  Page().profile()->findChild<QWebEngineDownloadRequest*>()->pause();
  Download("/quick");
  EXPECT_TRUE(ComesTrue([&] { return IsLastMessageWith(Message(kTextDownloaded, "quick")); }));
  view_.StopDownloads();
  EXPECT_EQ(frame_.messages.back(), Message(kTextDownloadStopped, "slow.bin"));
  EXPECT_TRUE(FolderComesToHold({"quick"}));
  server_.Serve("/file.bin", std::string(1'000'000, 'x'));
  const auto stop =
      QObject::connect(&view_, &CRSS_HtmlView::Changed, &view_, [this] { view_.StopDownloads(); });
  Download("/file.bin");
  EXPECT_TRUE(Ends(kTextDownloadStopped, "file.bin"));
  QObject::disconnect(stop);
  // The engine works in order: when the next one is there, it is through with this one.
  place_ = [this] { return FilePath("next.bin"); };
  Download("/file.bin");
  EXPECT_TRUE(Ends(kTextDownloaded, "next.bin"));
  EXPECT_TRUE(FolderComesToHold({"next.bin", "quick"}));
}

TEST_F(DownloadsTest, APlaceThatCannotBeWrittenFails) {
  server_.Serve("/file.bin", "bytes");
  std::filesystem::create_directory(folder_.File("directory"));
  QObject::connect(&view_, &CRSS_HtmlView::Changed, &view_, [this] {
    if (view_.IsDownloading()) std::filesystem::create_directory(folder_.File("late"));
  });
  for (const QString& place : {FilePath("missing/saved.bin"), FilePath("directory"),
                               QString("/proc/saved.bin"), FilePath("late")}) {
    place_ = [place] { return place; };
    Download("/file.bin");
    EXPECT_TRUE(Ends(kTextDownloadFailed, QFileInfo(place).fileName().toStdString()));
  }
  EXPECT_TRUE(FolderComesToHold({"directory", "late"}));
}

TEST_F(DownloadsTest, ThePaneMayGoMeanwhileAndLeavesNothing) {
  auto pane =
      std::make_unique<CRSS_RightBottomContainer>(frame_, frame_, frame_, frame_.services, nullptr);
  server_.Endless("/slow.bin");
  pane->findChild<CRSS_HtmlView*>()->Navigate(Url("/slow.bin"));
  EXPECT_TRUE(ComesTrue([&] { return !folder_.Names().empty(); }));
  frame_.messages.clear();
  pane.reset();
  EXPECT_TRUE(FolderComesToHold({}));
  EXPECT_TRUE(frame_.messages.empty());
}

TEST(DownloadFiles, ANameIsHarmlessAndShortAndKeepsItsEnding) {
  for (const char* const row :
       {"a\nb\x1b\x7f.txt > ab.txt", "a\u202E\u2066b\u200F\u200E\u2028\u2029.exe > ab.exe",
        "\u202A\u202C\u2069x\u2067\u2068 > x", "a file.tar.gz > a file.tar.gz",
        "../../etc/passwd > passwd", "C:\\a\\file.exe > file.exe", "folder/ > folder",
        ".bashrc > bashrc", "... > download", "/ > download", ".\n./x > x",
        "file.txt.  > file.txt"}) {
    const QStringList names = QString(row).split(" > ");
    EXPECT_EQ(SafeFileName(names[0]), names[1]) << row;
  }
  const QString key = QString::fromUtf8("🔑").repeated(300), x(300, 'x');
  EXPECT_EQ(SafeFileName(key + ".jpeg"), key.left(96) + ".jpeg");
  EXPECT_EQ(SafeFileName(x + "." + x.left(19)), x.left(180) + "." + x.left(19));
  EXPECT_EQ(SafeFileName("a." + x), "a." + x.left(198));
  // The part of a download is hidden beside its target, whose name may have any length.
  const QString part = PartPath("/folder/" + x);
  EXPECT_TRUE(part.startsWith("/folder/." + x.left(180) + ".") && part.endsWith(".part"));
}

}  // namespace feedloom
