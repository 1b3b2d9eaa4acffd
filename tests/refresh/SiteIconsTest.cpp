// Which sites are asked for their icons, how often, and what is kept of their answers.
#include <fmt/core.h>

#include "kit/Rows.h"
#include "refresh/RefreshKit.h"
#include "refresh/SiteIconRun.h"

namespace feedloom {

using namespace std::chrono_literals;

struct SiteIconsTest : testing::Test {
  // The server stands for all sites: it is the proxy.
  SiteIconsTest() {
    const char key[] =
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
    EXPECT_TRUE(services_->registry.WriteDword(key, "ProxyEnable", 1));
    EXPECT_TRUE(services_->registry.WriteString(key, "ProxyServer",
                                                fmt::format("127.0.0.1:{}", kit_.server.Port())));
  }
  // A channel whose last try ended so.
  void AddChannel(const std::string& xmlLink, const std::string& home, FeedFaultKind fault = {}) {
    kit_.db.Sql(
        fmt::format("insert into TB_CHANNEL(channel_id, channel_xmllink, channel_htmllink)"
                    " values({}, '{}', '{}')",
                    ++channels_, xmlLink, home));
    FeedVisit visit{.address = xmlLink, .fault = {.kind = fault}};
    visit.succeeded = std::chrono::sys_seconds(1s);
    memory_.Remember(channels_, visit);
  }
  void Ask() {
    EXPECT_FALSE(memory_.Save([](int) { return true; }));
    AskForIcons(*services_, maker_, stop_.get_token());
  }
  int Asked(const std::string& site) const { return kit_.server.Requests(site + "/favicon.ico"); }
  std::string PathOf(const std::string& site) { return SiteIconPath(kit_.folder.Path(), site); }

  RefreshKit kit_;
  CheckClock clock_{kIconTimeLimit};
  const SharedServices services_ = kit_.Services(clock_);
  FeedMemory memory_{FeedMemoryPath(kit_.memoryFolder.Path())};
  IconMaker maker_ = [](std::string_view sent) {
    return sent.starts_with("icon") ? "our " + std::string(sent) : "";
  };
  std::stop_source stop_;
  int channels_ = 0;
};

TEST_F(SiteIconsTest, EachSiteIsAskedOnceAWeekWhateverItAnswers) {
  for (int i = 1; i <= 200; ++i) {
    AddChannel(fmt::format("http://feeds.example/{}", i), fmt::format("http://s{}.example/", i));
  }
  AddChannel("http://S1.example/more", "");
  AddChannel("http://down.example/", "", FeedFaultKind::TimedOut);
  AddChannel("file:///feed.xml", "http://down.example/");
  kit_.server.Serve("http://s2.example/favicon.ico", "icon");
  for (const auto& [time, requests] : {std::pair(0s, 1), {0s, 1}, {7 * 24h - 1s, 1}, {1s, 2}}) {
    clock_.Set(clock_.Now() + time);
    Ask();
    for (int i = 1; i <= 200; ++i) EXPECT_EQ(Asked(fmt::format("http://s{}.example", i)), requests);
  }
  EXPECT_EQ(Asked("http://down.example") + Asked("http://feeds.example"), 0);
  EXPECT_EQ(ReadSiteIcon(PathOf("http://s2.example")), "our icon");

  kit_.db.Sql("delete from TB_CHANNEL where channel_id = 2");
  Ask();
  EXPECT_FALSE(std::filesystem::exists(PathOf("http://s2.example")));
  EXPECT_TRUE(std::filesystem::exists(PathOf("http://s3.example")));
}

TEST_F(SiteIconsTest, WhatIsNoIconLeavesTheOneOfTheWeekBefore) {
  const std::string site = "http://site.example", icon = site + "/favicon.ico";
  AddChannel(site + "/feed", site);
  const auto keptAfter = [&](const std::function<void()>& answer) {
    clock_.Set(clock_.Now() + kIconPeriod);
    answer();
    Ask();
    return ReadSiteIcon(PathOf(site));
  };
  auto& server = kit_.server;
  EXPECT_EQ(keptAfter([&] { server.Endless(icon); }), "");
  EXPECT_EQ(keptAfter([&] { server.Serve(icon, "icon" + Repeated(".", 65'532)); }).size(), 65'536u);
  EXPECT_EQ(keptAfter([&] { server.Serve(icon, "icon"); }), "our icon");
  EXPECT_EQ(keptAfter([&] { server.Serve(icon, "icon" + Repeated(".", 65'533)); }), "our icon");
  EXPECT_EQ(keptAfter([&] { server.Serve(icon, "<p>"); }), "our icon");
  EXPECT_EQ(keptAfter([&] { server.Redirect(icon, "file:///etc/passwd"); }), "our icon");
  EXPECT_EQ(keptAfter([&] { server.Protect(icon, "icon 1", "x"); }), "our icon");
  server.Serve("http://cdn.example/a", "icon 2");
  EXPECT_EQ(keptAfter([&] { server.Redirect(icon, "http://cdn.example/a"); }), "our icon 2");
}

TEST_F(SiteIconsTest, AStopOrTheTimeLimitEndsAnAnswerThatDoesNotCome) {
  kit_.server.Hang("http://slow.example/favicon.ico");
  AddChannel("http://slow.example/", "");
  std::thread asking([this] { Ask(); });
  EXPECT_TRUE(kit_.server.WaitForRequest("http://slow.example/favicon.ico"));
  stop_.request_stop();
  asking.join();
  stop_ = {};
  Ask();
  EXPECT_EQ(Asked("http://slow.example"), 1) << "the try counts";
  clock_.Set(clock_.Now() + kIconPeriod);
  clock_.RunOut();
  Ask();
}

}  // namespace feedloom
