// Hosts with the module that the project builds.

#include <QImage>
#include <filesystem>

#include "host/HalvixFixture.h"

namespace feedloom {
namespace {

class RealModuleTest : public HalvixFixture {
 protected:
  QImage Picture() const {
    const QString file = QString::fromStdString(folder_.File("window.png"));
    const HalvixResult result = Run({"--screenshot", file});
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    return QImage(file);
  }

  QByteArray Feedloomctl(const char* command) const {
    QProcess program;
    program.start(FEEDLOOMCTL, {"--profile", QString::fromStdString(paths_.dir), command});
    EXPECT_TRUE(program.waitForFinished());
    return program.readAllStandardOutput();
  }
};

TEST_F(RealModuleTest, HalvixLinksItAndTakesThePictureOfTheFirstPost) {
  std::filesystem::create_directories(paths_.moduleDir);
  std::filesystem::create_symlink("/nowhere/feedloom.so", paths_.module);
  const QImage withoutPosts = Picture();
  EXPECT_EQ(withoutPosts.size(), QSize(1024, 700));
  EXPECT_EQ(std::filesystem::read_symlink(paths_.module), MODULE);
  EXPECT_TRUE(IsRegularFile(paths_.database + ".bak"));

  Feedloomctl("refresh");
  EXPECT_NE(Picture(), withoutPosts);
  const QByteArray posts = Feedloomctl("posts");
  EXPECT_EQ(posts.count('\n'), 5);
  EXPECT_EQ(posts.count(" * "), 4) << "the post that was shown is read\n" << posts.constData();
}

TEST_F(RealModuleTest, ImagesAreFineWhereTheScreenIs) {
  qputenv("QT_SCALE_FACTOR", "2");
  const QImage picture = Picture();
  qunsetenv("QT_SCALE_FACTOR");
  ASSERT_EQ(picture.size(), QSize(2048, 1400));
  // In the tree's toolbar: of an image with one pixel for four, each of the four would be the same.
  int uneven = 0;
  for (int y = 60; y < 100; y += 2) {
    for (int x = 16; x < 290; x += 2) {
      if (picture.copy(x, y, 2, 2) != picture.copy(x, y, 1, 1).scaled(2, 2)) ++uneven;
    }
  }
  EXPECT_GT(uneven, 300);
}

TEST_F(RealModuleTest, TheMinimalHostShowsItAndLeaves) {
  ASSERT_EQ(CreateProfile(paths_.dir, ShareDir(), CodePage::Korean(), "KOR"), std::nullopt);
  std::filesystem::create_symlink(MODULE, paths_.module);
  QProcess host;
  host.start(MINIMAL_HOST, {QString::fromStdString(paths_.module),
                            QString::fromStdString(ShareDir() + "/image.ini")});
  ASSERT_TRUE(host.waitForFinished());
  EXPECT_EQ(host.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(host.exitCode(), 0) << host.readAllStandardError().toStdString();
}

}  // namespace
}  // namespace feedloom
