// Downloads with the real engine and a real server.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QSignalSpy>
#include <QTest>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kit/FeedServer.h"
#include "kit/TempFolder.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/ComesTrue.h"
#include "ui/browser/DownloadFiles.h"
#include "ui/browser/Downloads.h"

namespace feedloom {
namespace {

using std::chrono::milliseconds;
using testing::Test;

constexpr int kPatience = 30'000;  // milliseconds

const std::vector<std::string> kNothing;
const std::string kLong(32 << 20, 'x');  // not here at once

class DownloadsTest : public Test {
 protected:
  static void SetUpTestSuite() { PrepareBrowser(); }

  struct Event {
    DownloadEvent event;
    QString name;
    QString progress;
  };

  DownloadsTest() {
    QObject::connect(downloads_.get(), &Downloads::Changed, &context_,
                     [this](DownloadEvent event, const QString& name, const QString& progress) {
                       events_.push_back({event, name, progress});
                       if (event == DownloadEvent::Progress) whileUnderWay_();
                     });
  }

  QString PlaceOf(std::string_view name) const {
    return QString::fromStdString(folder_.File(name));
  }

  QUrl Url(const char* path) const { return QUrl(QString::fromStdString(server_.Url(path))); }

  void Download(const char* path) { page_.download(Url(path), suggested_); }

  // Comes back when a part of the file is in the folder.
  void BeginAndHold(const char* path) {
    server_.Endless(path);
    Download(path);
    EXPECT_TRUE(ComesTrue([this] { return downloads_->AreUnderWay(); }, kPatience));
    profile_.findChild<QWebEngineDownloadRequest*>()->pause();
    EXPECT_TRUE(ComesTrue([this] { return folder_.Names().size() == 1; }, kPatience));
  }

  int Count(DownloadEvent event) const {
    return static_cast<int>(
        std::ranges::count_if(events_, [event](const Event& e) { return e.event == event; }));
  }

  // The event is the next one beside progress.
  bool Ends(DownloadEvent event) {
    const auto isOver = [this] {
      return !events_.empty() && events_.back().event != DownloadEvent::Progress;
    };
    return ComesTrue(isOver, kPatience) && events_.back().event == event &&
           !downloads_->AreUnderWay();
  }

  bool MakesProgress() {
    QSignalSpy told(downloads_.get(), &Downloads::Changed);
    return told.wait(kPatience) && Count(DownloadEvent::Progress) > 0;
  }

  // The engine removes its files in its own time.
  bool FolderComesToHold(const std::vector<std::string>& names) {
    return ComesTrue([&] { return folder_.Names() == names; }, kPatience);
  }

  TempFolder folder_;
  FeedServer server_;
  QObject context_;
  QWebEngineProfile profile_;
  QWebEnginePage page_{&profile_};
  QString suggested_;
  std::function<QString()> place_ = [this] { return PlaceOf("saved.bin"); };
  std::vector<QString> asked_;
  std::unique_ptr<Downloads> downloads_ = std::make_unique<Downloads>(
      profile_,
      [this](const QString& name) {
        asked_.push_back(name);
        return place_();
      },
      nullptr);
  std::vector<Event> events_;
  std::function<void()> whileUnderWay_ = [] {};
};

TEST_F(DownloadsTest, AFileArrivesWholeAndOnlyThenUnderItsName) {
  server_.SlowDrip("/file.bin", "twenty slow bytes...", milliseconds(100));
  whileUnderWay_ = [this] {
    EXPECT_TRUE(downloads_->AreUnderWay());
    for (const std::string& name : folder_.Names()) EXPECT_EQ(name.substr(0, 11), ".saved.bin.");
  };
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(events_.back().name, "saved.bin");
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"saved.bin"});
  EXPECT_EQ(folder_.Read("saved.bin"), "twenty slow bytes...");
  EXPECT_EQ(asked_, std::vector<QString>{"file.bin"});
}

TEST_F(DownloadsTest, ProgressIsToldAsRisingPercentages) {
  server_.Serve("/file.bin", kLong);
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  ASSERT_GE(Count(DownloadEvent::Progress), 1);
  int last = -1;
  for (const Event& event : events_) {
    if (event.event != DownloadEvent::Progress) continue;
    ASSERT_TRUE(event.progress.endsWith('%')) << event.progress.toStdString();
    const int percent = event.progress.chopped(1).toInt();
    EXPECT_GT(percent, last);
    last = percent;
  }
  EXPECT_LE(last, 100);
}

TEST_F(DownloadsTest, ALengthThatIsNotKnownIsToldAsTheSizeSoFar) {
  server_.Endless("/endless");
  Download("/endless");
  EXPECT_TRUE(MakesProgress());
  EXPECT_TRUE(events_.front().progress.endsWith('B')) << events_.front().progress.toStdString();
  downloads_->Stop();
  EXPECT_EQ(events_.back().event, DownloadEvent::Stopped);
  EXPECT_TRUE(FolderComesToHold(kNothing));
}

TEST_F(DownloadsTest, AnExistingFileIsReplacedOnlyByAWholeOne) {
  folder_.Write("saved.bin", "old");
  whileUnderWay_ = [this] { EXPECT_EQ(folder_.Read("saved.bin"), "old"); };
  server_.BreakOff("/broken", std::string(100'000, 'x'));
  Download("/broken");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
  EXPECT_EQ(folder_.Read("saved.bin"), "old");

  events_.clear();
  server_.SlowDrip("/whole", "brand new", milliseconds(100));
  Download("/whole");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(folder_.Read("saved.bin"), "brand new");
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
}

TEST_F(DownloadsTest, OneThatIsStoppedLeavesNothing) {
  BeginAndHold("/file.bin");
  downloads_->Stop();
  EXPECT_TRUE(Ends(DownloadEvent::Stopped));
  EXPECT_TRUE(FolderComesToHold(kNothing));
  downloads_->Stop();
  EXPECT_EQ(Count(DownloadEvent::Stopped), 1);
}

TEST_F(DownloadsTest, OneThatIsStoppedWhenItBeginsLeavesNothing) {
  server_.Serve("/file.bin", std::string(1'000'000, 'x'));
  QSignalSpy begun(downloads_.get(), &Downloads::Begun);
  Download("/file.bin");
  EXPECT_TRUE(begun.wait(kPatience));
  downloads_->Stop();
  // The engine carries out what is asked of it one after another: when the next one is there, it is
  // through with this one.
  place_ = [this] { return PlaceOf("next.bin"); };
  events_.clear();
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_TRUE(FolderComesToHold({"next.bin"}));
}

TEST_F(DownloadsTest, OneThatTheServerBreaksOffFailsAndLeavesNothing) {
  server_.BreakOff("/file.bin", std::string(100'000, 'x'));
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  EXPECT_EQ(asked_.size(), 1u);
  EXPECT_TRUE(FolderComesToHold(kNothing));
}

TEST_F(DownloadsTest, WithoutAPlaceNothingIsWrittenAndNothingTold) {
  server_.Serve("/file.bin", "bytes");
  place_ = [] { return QString(); };
  Download("/file.bin");
  EXPECT_TRUE(ComesTrue([this] { return asked_.size() == 1; }, kPatience));
  EXPECT_FALSE(downloads_->AreUnderWay());
  // The next one finds no trace of it.
  place_ = [this] { return PlaceOf("next.bin"); };
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(events_.back().name, "next.bin");
  EXPECT_TRUE(FolderComesToHold({"next.bin"}));
}

// The engine itself holds back what comes while a dialog of the handler is open.
TEST_F(DownloadsTest, ARequestThatComesWhileTheUserIsAskedIsRefused) {
  server_.Serve("/file.bin", "bytes");
  place_ = [this] {
    emit profile_.downloadRequested(profile_.findChild<QWebEngineDownloadRequest*>());
    EXPECT_FALSE(downloads_->AreUnderWay());
    return PlaceOf("saved.bin");
  };
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(asked_.size(), 1u);
  EXPECT_EQ(folder_.Read("saved.bin"), "bytes");
}

TEST_F(DownloadsTest, ManyAtATimeGoTheirOwnWays) {
  server_.Serve("/quick", "quick");
  place_ = [this] { return PlaceOf(asked_.back().toStdString()); };
  BeginAndHold("/slow");
  Download("/quick");
  EXPECT_TRUE(ComesTrue([this] { return Count(DownloadEvent::Done) == 1; }, kPatience));
  EXPECT_TRUE(downloads_->AreUnderWay());
  EXPECT_EQ(folder_.Read("quick"), "quick");
  downloads_->Stop();
  EXPECT_EQ(events_.back().name, "slow");
  EXPECT_TRUE(FolderComesToHold({"quick"}));
}

TEST_F(DownloadsTest, APageThatIsNoPageIsDownloaded) {
  server_.Serve("/archive.zip", "PK...", "application/zip");
  page_.load(Url("/archive.zip"));
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(asked_, std::vector<QString>{"archive.zip"});
  EXPECT_EQ(folder_.Read("saved.bin"), "PK...");
}

TEST_F(DownloadsTest, APageIsSaved) {
  server_.Serve("/page", "<title>A title</title><p>the text", "text/html");
  QSignalSpy loaded(&page_, &QWebEnginePage::loadFinished);
  page_.load(Url("/page"));
  ASSERT_TRUE(loaded.wait(kPatience));
  page_.triggerAction(QWebEnginePage::SavePage);
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_NE(folder_.Read("saved.bin").find("the text"), std::string::npos);
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
}

TEST_F(DownloadsTest, APlaceThatCannotBeWrittenFails) {
  server_.Serve("/file.bin", "bytes");
  folder_.Write("file", "");
  std::filesystem::create_directory(folder_.File("directory"));
  for (const QString& place : {PlaceOf("missing/saved.bin"), PlaceOf("file/saved.bin"),
                               PlaceOf("directory"), QString("/proc/saved.bin")}) {
    events_.clear();
    place_ = [place] { return place; };
    Download("/file.bin");
    EXPECT_TRUE(Ends(DownloadEvent::Failed)) << place.toStdString();
  }
  EXPECT_TRUE(FolderComesToHold({"directory", "file"}));
}

// No file of this process grows beyond `bytes`, as if the disk were full then.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit full{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*const handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before_{};
};

TEST_F(DownloadsTest, ADiskThatGetsFullFailsOneAndKeepsTheOlderFile) {
  server_.Serve("/file.bin", kLong);
  folder_.Write("saved.bin", "older");
  const FullDisk disk(8 << 20);
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
  EXPECT_EQ(folder_.Read("saved.bin"), "older");
}

TEST_F(DownloadsTest, ATargetThatBecomesADirectoryFailsAndLeavesNothing) {
  server_.SlowDrip("/file.bin", "abcdefghij", milliseconds(100));
  whileUnderWay_ = [this] { std::filesystem::create_directory(folder_.File("saved.bin")); };
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
}

TEST_F(DownloadsTest, TheObjectsEndStopsThemWithoutAWord) {
  BeginAndHold("/file.bin");
  events_.clear();
  downloads_.reset();
  EXPECT_TRUE(FolderComesToHold(kNothing));
  EXPECT_TRUE(events_.empty());
}

TEST_F(DownloadsTest, TheObjectMayGoWhileTheUserIsAsked) {
  server_.Serve("/file.bin", "bytes");
  QSignalSpy requests(&profile_, &QWebEngineProfile::downloadRequested);
  place_ = [this] {
    downloads_.reset();
    return PlaceOf("saved.bin");
  };
  Download("/file.bin");
  EXPECT_TRUE(ComesTrue([&] { return requests.count() == 1; }, kPatience));
  EXPECT_EQ(folder_.Names(), kNothing);
  EXPECT_TRUE(events_.empty());
}

TEST_F(DownloadsTest, TheObjectMayGoWhenItTellsTheEnd) {
  server_.Serve("/file.bin", "bytes");
  QObject::connect(downloads_.get(), &Downloads::Changed, &context_, [this](DownloadEvent event) {
    if (event == DownloadEvent::Done) downloads_.reset();
  });
  Download("/file.bin");
  EXPECT_TRUE(ComesTrue([this] { return downloads_ == nullptr; }, kPatience));
  EXPECT_EQ(folder_.Read("saved.bin"), "bytes");
}

TEST(SafeFileName, KeepsAHarmlessNameAndTakesTheHarmOutOfOthers) {
  const struct {
    QString suggested;
    QString safe;
  } kCases[] = {
      {"a file.tar.gz", "a file.tar.gz"},
      {"한글.zip", "한글.zip"},
      {"../../etc/passwd", "passwd"},
      {"/etc/passwd", "passwd"},
      {"C:\\dir\\file.exe", "file.exe"},
      {"folder/", "folder"},
      {".bashrc", "bashrc"},
      {"...", "download"},
      {"..", "download"},
      {"", "download"},
      {"/", "download"},
      {" . ", "download"},
      {QString("a") + QChar(0) + "b\n\x1b\x7f.txt", "ab.txt"},
      {QString(".\n.hidden"), "hidden"},
      {QString(".\n./x"), "x"},
      {QString("photo") + QChar(0x202E) + "gpj.exe", "photogpj.exe"},
      {"file.txt. ", "file.txt"},
  };
  for (const auto& [suggested, safe] : kCases) {
    EXPECT_EQ(SafeFileName(suggested).toStdString(), safe.toStdString());
  }
}

TEST(SafeFileName, ShortensALongNameInWholeCharactersAndKeepsItsEnding) {
  const QString key = QString::fromUtf8("🔑");
  for (const QString& letter : {QString("x"), QString("한"), key}) {
    const QString name = SafeFileName(letter.repeated(300) + ".jpeg");
    EXPECT_LE(name.toUtf8().size(), 200);
    EXPECT_GT(name.toUtf8().size(), 190);
    EXPECT_TRUE(name.endsWith(".jpeg"));
    EXPECT_EQ(QString::fromUtf8(name.toUtf8()), name);
  }
  EXPECT_LE(SafeFileName("a." + QString(300, 'x')).toUtf8().size(), 200);
}

TEST(PartPath, IsHiddenBesideTheTargetAndTakesANameOfAnyLength) {
  const TempFolder folder;
  const QString target = QString::fromStdString(folder.File(std::string(255, 'x')));
  const QString part = PartPath(target);
  EXPECT_TRUE(part.startsWith(QString::fromStdString(folder.Path()) + "/.xxx"));
  EXPECT_NE(part, PartPath(target));
  EXPECT_LE(part.size() - static_cast<qsizetype>(folder.Path().size()), 240);
}

}  // namespace
}  // namespace feedloom
