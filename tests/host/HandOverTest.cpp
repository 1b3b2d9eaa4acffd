// What a second start hands to the first one, and the socket that it goes through.
#include <gtest/gtest.h>

#include <QLocalSocket>
#include <QSignalSpy>
#include <QTest>
#include <future>

#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/Instance.h"
#include "kit/ShippedSkin.h"
#include "kit/TempFolder.h"

namespace feedloom {

using State = ReceivedFrame::State;
using Strings = std::vector<std::string>;

TEST(HandOver, AnArgumentNamesAnAddressOrAFileSeenFromWhereItIsGiven) {
  const std::pair<std::string, std::string> arguments[] = {
      {"http://a.example/?q=a:b", "http://a.example/?q=a:b"},
      {"FEED:a.example", "FEED:a.example"},
      {"javascript:alert(1)", "javascript:alert(1)"},
      {"목록.opml", "/home/me/목록.opml"},
      {"../a\xFF.opml", "/home/me/../a\xFF.opml"},
      {"/tmp/a.opml", "/tmp/a.opml"},
      {"./feed:a", "/home/me/./feed:a"},
      {"a:b", "/home/me/a:b"},
      {"", "/home/me/"},
      {"file:///tmp/%EB%AA%A9%20a%FF", "/tmp/목 a\xFF"},
      {"file://localhost/tmp/a", "/tmp/a"},
      {"file:/tmp/a", "/tmp/a"},
      {"file://other/tmp/a", "file://other/tmp/a"}};
  for (const auto& [argument, content] : arguments)
    EXPECT_EQ(ContentOf(argument, "/home/me"), content) << argument;
}

TEST(HandOver, ComesOutOfItsFrameAsItWentInAndLeavesOutWhatHasNoRoom) {
  const HandOver sent{{"http://a.example/", "/a\xFF\n.opml", ""}, 3, "token", true};
  const std::string frame = FrameOf(sent);
  EXPECT_EQ(ReadFrame(frame).handOver, sent);
  for (std::size_t size = 0; size < frame.size(); ++size)
    EXPECT_EQ(ReadFrame(frame.substr(0, size)).state, State::Incomplete) << size;
  const std::string long1(kMaxFrame / 2, 'a'), long2(kMaxFrame / 2, 'b');
  const std::string full = FrameOf({{long1, long2, "c"}});
  EXPECT_LE(full.size(), kMaxFrame);
  EXPECT_EQ(ReadFrame(full).handOver, (HandOver{{long1, "c"}, 1}));
  for (const std::string& nonsense :
       {std::string("GET / HTTP/1.1\r\n"), std::string(4, '\xFF'), std::string(4, '\0'),
        frame + "x", std::string("\0\0\0\3a\0b", 7), std::string("\0\0\0\2\0\0", 6)})
    EXPECT_EQ(ReadFrame(nonsense).state, State::Nonsense) << nonsense;
  for (const std::size_t place : {5u, 25u})
    EXPECT_EQ(ReadFrame(std::string(frame).replace(place, 1, "?")).state, State::Nonsense);
}

struct InstanceSocketTest : testing::Test {
  void Connect(QLocalSocket& socket, const std::string& bytes) const {
    socket.connectToServer(QString::fromStdString(path_));
    socket.write(bytes.data(), qint64(bytes.size()));
  }

  const TempFolder folder_;
  const std::string path_ = SocketPaths(folder_.Path(), "").at(0);
};

TEST_F(InstanceSocketTest, AnswersAWholeHandOverAndNeitherNonsenseNorSilence) {
  folder_.Write("halvix.socket", "of a killed program");
  InstanceSocket socket({"/nowhere/socket", path_});
  EXPECT_EQ(std::filesystem::status(path_).permissions() & std::filesystem::perms(0077),
            std::filesystem::perms::none);
  QSignalSpy received(&socket, &InstanceSocket::Received);
  QLocalSocket silent, half, nonsense, client;
  Strings many(10'000);
  for (std::size_t i = 0; i < many.size(); ++i) many[i] = "http://a.example/" + std::to_string(i);
  Connect(silent, "");
  Connect(half, FrameOf({many}).substr(0, 100));
  Connect(nonsense, std::string(2 * kMaxFrame, 'x'));
  QSignalSpy dropped(&nonsense, &QLocalSocket::disconnected);
  ASSERT_TRUE(!dropped.empty() || dropped.wait());
  EXPECT_EQ(nonsense.readAll(), "");
  Connect(client, FrameOf({many, 0, "token"}));
  QSignalSpy answered(&client, &QLocalSocket::disconnected);
  ASSERT_TRUE(answered.wait());
  EXPECT_EQ(client.readAll(), "1");
  ASSERT_EQ(received.size(), 1);
  EXPECT_EQ(received[0][0].value<HandOver>(), (HandOver{many, 0, "token"}));
}

TEST_F(InstanceSocketTest, WhoSendsLearnsThatNobodyIsInOrNobodyAnswers) {
  using std::chrono::milliseconds;
  const Strings places{folder_.File("none"), path_};
  EXPECT_EQ(SendHandOver(places, {}, milliseconds(1)), HandOverEnd::NobodyIn);
  const InstanceSocket busy({path_});
  EXPECT_EQ(SendHandOver(places, {}, milliseconds(1)), HandOverEnd::NoAnswer);
}

TEST_F(InstanceSocketTest, AWindowComesToTheFrontForALaterStartUnlessThatWantsNone) {
  using namespace std::chrono_literals;
  const ShippedSkin skin;
  SetHostTables(ReadHostTexts(skin.Get().Config()), CodePage::Korean());
  HostWindow window("Feedloom", {"dark", "KOR"}, {});
  Instance instance({path_}, {});
  instance.Serve(window);
  for (const bool isHidden : {true, false}) {
    auto sent = std::async([&] { return SendHandOver({path_}, {.isHidden = isHidden}, 5s); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return sent.wait_for(0s) == std::future_status::ready; }));
    EXPECT_EQ(sent.get(), HandOverEnd::Taken);
    EXPECT_EQ(window.isVisible(), !isHidden);
  }
}

TEST(SocketPaths, LieInTheProfileUnlessThatPathIsTooLong) {
  const std::string deep = "/" + std::string(90, 'd');
  EXPECT_EQ(SocketPaths("/p", ""), Strings{"/p/halvix.socket"});
  EXPECT_EQ(SocketPaths("/p", "/run").size(), 2u);
  EXPECT_EQ(SocketPaths(deep, ""), Strings());
  EXPECT_TRUE(SocketPaths(deep, "/run").at(0).starts_with("/run/halvix-"));
  EXPECT_NE(SocketPaths(deep, "/run"), SocketPaths(deep + "e", "/run"));
}

}  // namespace feedloom
