// Downloads with the real engine and a real server, and the names of their files.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QElapsedTimer>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <csignal>
#include <filesystem>

#include "ui/browser/BrowserFixture.h"
#include "ui/browser/DownloadFiles.h"

namespace feedloom {
namespace {

using Names = std::vector<std::string>;
const std::string kLong(32 << 20, 'x');  // not here at once

class DownloadsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { PrepareBrowser(); }

  DownloadsTest() { Make(); }

  void Make() {
    const auto ask = [this](const QString& name) {
      asked_.push_back(name);
      return place_();
    };
    downloads_ = std::make_unique<Downloads>(profile_, ask, nullptr);
    QObject::connect(downloads_.get(), &Downloads::Changed, &context_,
                     [this](DownloadEvent event, const QString& name, const QString& progress) {
                       events_.push_back(event);
                       name_ = name;
                       if (event == DownloadEvent::Progress) progress_.push_back(progress);
                     });
  }
  QString Place(std::string_view name) const { return QString::fromStdString(folder_.File(name)); }
  QUrl Url(const char* path) const { return QUrl(QString::fromStdString(server_.Url(path))); }
  void Download(const char* path) { page_.download(Url(path)); }
  // Comes back when a part of the file, whose end does not come, is in the folder.
  void BeginAndHold() {
    server_.Endless("/slow.bin");
    Download("/slow.bin");
    ASSERT_TRUE(ComesTrue([&] { return !progress_.empty() && folder_.Names()[0][0] == '.'; }));
    profile_.findChild<QWebEngineDownloadRequest*>()->pause();
    EXPECT_TRUE(downloads_->AreUnderWay());
  }
  // The event is the next one beside progress.
  bool Ends(DownloadEvent event) {
    events_.clear();
    const auto hasEnded = [&] {
      return !events_.empty() && events_.back() != DownloadEvent::Progress;
    };
    return ComesTrue(hasEnded) && events_.back() == event && !downloads_->AreUnderWay();
  }
  // The engine removes its files in its own time.
  bool FolderComesToHold(const Names& names) {
    return ComesTrue([&] { return folder_.Names() == names; });
  }

  TempFolder folder_;
  FeedServer server_;
  QObject context_;
  QWebEngineProfile profile_;
  QWebEnginePage page_{&profile_};
  std::function<QString()> place_ = [this] { return Place("saved.bin"); };
  std::vector<QString> asked_;
  std::unique_ptr<Downloads> downloads_;
  std::vector<DownloadEvent> events_;
  QString name_;  // in the latest event
  std::vector<QString> progress_;
};

TEST_F(DownloadsTest, AFileArrivesWholeAndTakesTheOldOnesPlaceOnlyThen) {
  folder_.Write("saved.bin", "old");
  server_.BreakOff("/broken", std::string(100'000, 'x'));
  Download("/broken");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
  EXPECT_EQ(folder_.Read("saved.bin"), "old");
  progress_.clear();
  server_.Serve("/dir/file.bin", kLong);
  Download("/dir/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(folder_.Read("saved.bin"), kLong);
  EXPECT_EQ(folder_.Names(), Names{"saved.bin"});
  EXPECT_EQ(asked_, (std::vector<QString>{"broken", "file.bin"}));
  EXPECT_EQ(name_, "saved.bin");
  int last = -1;
  for (const QString& progress : progress_) {
    EXPECT_TRUE(progress.endsWith('%')) << progress.toStdString();
    EXPECT_GT(progress.chopped(1).toInt(), std::exchange(last, progress.chopped(1).toInt()));
  }
  EXPECT_EQ(last, 100);
}

TEST_F(DownloadsTest, OneThatIsStoppedLeavesNothingAndOthersAreWhole) {
  QElapsedTimer time;
  time.start();
  server_.Serve("/quick", "quick");
  place_ = [this] { return Place(asked_.back().toStdString()); };
  BeginAndHold();
  EXPECT_TRUE(progress_.front().endsWith('B')) << progress_.front().toStdString();
  EXPECT_LE(std::ssize(progress_), 1 + time.elapsed() / 1000);  // at most one a second
  Download("/quick");
  EXPECT_TRUE(ComesTrue([this] { return events_.back() == DownloadEvent::Done; }));
  EXPECT_TRUE(downloads_->AreUnderWay());
  downloads_->Stop();
  EXPECT_EQ(events_.back(), DownloadEvent::Stopped);
  EXPECT_EQ(name_, "slow.bin");
  EXPECT_TRUE(FolderComesToHold({"quick"}));
  EXPECT_EQ(folder_.Read("quick"), "quick");
  const std::size_t told = events_.size();
  downloads_->Stop();
  EXPECT_EQ(events_.size(), told);
}

TEST_F(DownloadsTest, OneThatIsStoppedWhenItBeginsLeavesNothing) {
  server_.Serve("/file.bin", std::string(1'000'000, 'x'));
  QSignalSpy begun(downloads_.get(), &Downloads::Begun);
  Download("/file.bin");
  EXPECT_TRUE(begun.wait(30'000));
  downloads_->Stop();
  // The engine works in order: when the next one is there, it is through with this one.
  place_ = [this] { return Place("next.bin"); };
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_TRUE(FolderComesToHold({"next.bin"}));
}

// The engine itself holds back what comes while a dialog of the handler is open.
TEST_F(DownloadsTest, OneWithoutAPlaceAndOneThatComesWhileTheUserIsAskedAreRefused) {
  server_.Serve("/file.bin", "bytes");
  place_ = [] { return QString(); };
  Download("/file.bin");
  EXPECT_TRUE(ComesTrue([this] { return asked_.size() == 1; }));
  EXPECT_FALSE(downloads_->AreUnderWay());
  place_ = [this] {
    emit profile_.downloadRequested(profile_.findChild<QWebEngineDownloadRequest*>());
    EXPECT_FALSE(downloads_->AreUnderWay());
    return Place("next.bin");
  };
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(asked_.size(), 2u);
  EXPECT_TRUE(FolderComesToHold({"next.bin"}));
}

TEST_F(DownloadsTest, WhatIsNoPageIsDownloadedAndAPageCanBeSaved) {
  server_.Serve("/archive.zip", "PK...", "application/zip");
  page_.load(Url("/archive.zip"));
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_EQ(asked_, std::vector<QString>{"archive.zip"});
  EXPECT_EQ(folder_.Read("saved.bin"), "PK...");
  server_.Serve("/page", "<title>A title</title><p>the text", "text/html");
  QSignalSpy loaded(&page_, &QWebEnginePage::loadFinished);
  page_.load(Url("/page"));
  ASSERT_TRUE(loaded.wait(30'000));
  page_.triggerAction(QWebEnginePage::SavePage);
  EXPECT_TRUE(Ends(DownloadEvent::Done));
  EXPECT_NE(folder_.Read("saved.bin").find("the text"), std::string::npos);
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
}

TEST_F(DownloadsTest, APlaceThatCannotBeWrittenFails) {
  server_.Serve("/file.bin", "bytes");
  folder_.Write("file", "");
  std::filesystem::create_directory(folder_.File("directory"));
  for (const QString& place : {Place("missing/saved.bin"), Place("file/saved.bin"),
                               Place("directory"), QString("/proc/saved.bin")}) {
    place_ = [place] { return place; };
    Download("/file.bin");
    EXPECT_TRUE(Ends(DownloadEvent::Failed)) << place.toStdString();
    EXPECT_EQ(name_, QFileInfo(place).fileName());
  }
  EXPECT_TRUE(FolderComesToHold({"directory", "file"}));

  place_ = [this] { return Place("late"); };
  QObject::connect(downloads_.get(), &Downloads::Begun, &context_,
                   [this] { std::filesystem::create_directory(folder_.File("late")); });
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  EXPECT_TRUE(FolderComesToHold({"directory", "file", "late"}));
}

TEST_F(DownloadsTest, ADiskThatGetsFullFailsOneAndKeepsTheOlderFile) {
  server_.Serve("/file.bin", kLong);
  folder_.Write("saved.bin", "older");
  // No file of this process grows further, as if the disk were full then.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit full{8 << 20, before.rlim_max};
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &full);
  Download("/file.bin");
  EXPECT_TRUE(Ends(DownloadEvent::Failed));
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_TRUE(FolderComesToHold({"saved.bin"}));
  EXPECT_EQ(folder_.Read("saved.bin"), "older");
}

TEST_F(DownloadsTest, TheObjectMayGoAtAnyTimeAndStopsThemWithoutAWord) {
  BeginAndHold();
  events_.clear();
  downloads_.reset();
  EXPECT_TRUE(FolderComesToHold({}));
  EXPECT_TRUE(events_.empty());
  server_.Serve("/file.bin", "bytes");
  Make();
  place_ = [this] {
    downloads_.reset();
    return Place("saved.bin");
  };
  Download("/file.bin");
  EXPECT_TRUE(ComesTrue([this] { return downloads_ == nullptr; }));
  place_ = [this] { return Place("next.bin"); };
  Make();
  QObject::connect(downloads_.get(), &Downloads::Changed, &context_, [this](DownloadEvent event) {
    if (event == DownloadEvent::Done) downloads_.reset();
  });
  Download("/file.bin");
  EXPECT_TRUE(ComesTrue([this] { return downloads_ == nullptr; }));
  EXPECT_EQ(folder_.Names(), Names{"next.bin"});
}

TEST(DownloadFiles, ANameIsHarmlessAndShortAndKeepsItsEnding) {
  const QString x(300, 'x'), wide(300, QChar(0xD55C)), key = QString::fromUtf8("🔑").repeated(300);
  const std::vector<std::pair<QString, QString>> cases = {
      {QString("a") + QChar(0) + "b\n\x1b\x7f.txt", "ab.txt"},
      {"photo\u202Egp\u2066j\u200F\u200E\u2028\u2029.exe", "photogpj.exe"},
      {"\u202A\u202C\u2069x\u2067\u2068", "x"},
      {x + ".jpeg", x.left(195) + ".jpeg"},
      {wide + ".jpeg", wide.left(65) + ".jpeg"},
      {key + ".jpeg", key.left(96) + ".jpeg"},
      {x + "." + x.left(19), x.left(180) + "." + x.left(19)},
      {"a." + x, "a." + x.left(198)}};
  for (const auto& [suggested, safe] : cases)
    EXPECT_EQ(SafeFileName(suggested).toStdString(), safe.toStdString());
  for (const char* const row :
       {"a file.tar.gz > a file.tar.gz", "../../etc/passwd > passwd", "C:\\a\\file.exe > file.exe",
        "folder/ > folder", ".bashrc > bashrc", "... > download", " > download", "/ > download",
        "  .  > download", ".\n./x > x", "file.txt.  > file.txt"}) {
    const QStringList names = QString(row).split(" > ");
    EXPECT_EQ(SafeFileName(names[0]), names[1]) << row;
  }
}

TEST(DownloadFiles, APartIsHiddenBesideItsTargetWhoseNameMayHaveAnyLength) {
  const QString part = PartPath("/folder/" + QString(255, 'x'));
  EXPECT_TRUE(part.startsWith("/folder/." + QString(180, 'x') + ".") && part.endsWith(".part"));
  EXPECT_NE(part, PartPath("/folder/" + QString(255, 'x')));
}

}  // namespace
}  // namespace feedloom
