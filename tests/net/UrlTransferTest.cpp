#include <stdlib.h>

#include "kit/FeedServer.h"
#include "kit/Rows.h"
#include "kit/TempFolder.h"
#include "net/UrlDownload.h"

namespace feedloom {

struct UrlTransferTest : testing::Test {
  // What stands in a file after `address` was loaded into it; of a failure the HTTP status.
  std::string Load(const std::string& address, const ProxySettings& proxy = {}) const {
    const std::string path = folder_.Write("file", "an older and longer content");
    const auto result = UrlDownloadToFile({.address = address, .web = {.proxy = proxy}}, path, {});
    EXPECT_EQ(result.error.empty(), result.ok) << address;
    return result.ok ? folder_.Read("file") : "failed: " + std::to_string(result.status);
  }

  static TransferResult Run(TransferRequest request) {
    request.sink = [](auto) { return true; };
    return RunTransfer(request, {});
  }

  std::string File(const std::string& name) const { return "file://" + folder_.File(name); }

  const TempFolder folder_;
  FeedServer server_;
};

TEST_F(UrlTransferTest, GivesEveryByteOfTheContentOrAFailure) {
  for (const int status : {400, 503}) server_.Fail("/" + std::to_string(status), status);
  server_.BreakOff("/broken", "<rss>");
  server_.Serve("/0", "");
  server_.Serve("/small", "<rss></rss>");
  for (int i = 0; i < 11; ++i) server_.Redirect("/" + std::to_string(i + 1), std::to_string(i));
  server_.Redirect("/to-ftp", "ftp://127.0.0.1/x");
  server_.Redirect("/to-file", File("my%20feed"));
  folder_.Write("my feed", "<local/>");
  ExpectRows([this](auto& path) { return Load(path[0] == '/' ? server_.Url(path) : path); },
             {"/0 -> ", "/10 -> ", "/11 -> failed: 302", "/broken -> failed: 200",
              "/to-ftp -> failed: 302", "/to-file -> failed: 302", "/400 -> failed: 400",
              "/503 -> failed: 503", "/none -> failed: 404", File("my%20feed") + " -> <local/>",
              File("missing") + " -> failed: 0", server_.Url("/0").substr(7) + " -> ",
              " FEED:" + server_.Url("/small").substr(5) + " -> <rss></rss>",
              "http://127.0.0.1:1/ -> failed: 0", " -> failed: 0", "ftp://127.0.0.1/x -> failed: 0",
              "no address -> failed: 0"});
  EXPECT_EQ(Run({.address = server_.Url("/10")}).address, server_.Url("/0"));
  EXPECT_FALSE(Run({.address = File("my%20feed")}).ok) << "not allowed";
  const std::string bytes = std::string("<rss>\0\xFF</rss>", 13) + std::string(300'000, 'x');
  server_.Compressed("/feed", bytes);
  EXPECT_EQ(Load(server_.Url("/feed")), bytes);
  const auto full = UrlDownloadToFile({.address = server_.Url("/small")}, "/dev/full", {});
  EXPECT_TRUE(!full.ok && full.error.starts_with("cannot write the file"));
  server_.Compressed("/feed", std::string((64 << 20) + 1, 'x'));
  EXPECT_EQ(Run({.address = server_.Url("/feed")}).error, "longer than 67108864 bytes");
}

TEST_F(UrlTransferTest, GoesThroughTheUsersProxyWhateverTheEnvironmentSays) {
  FeedServer proxy;
  const std::string far = "http://news.example/feed", near = server_.Url("/feed");
  const std::string at = "127.0.0.1:" + std::to_string(proxy.Port());
  server_.Serve("/feed", "direct");
  proxy.Serve(far, "proxied");
  for (const char* name : {"http_proxy", "ALL_PROXY", "no_proxy"}) {
    setenv(name, *name == 'n' ? "*" : "127.0.0.1:1", 1);
    EXPECT_EQ(Load(far, {true, "https=x:1;http=" + at, ""}), "proxied");
    for (const char* others : {"x.example;127.0.0.1", "127.*", "127.0.*", "1*7.0.0.1"})
      EXPECT_EQ(Load(near, {true, at, others}), "direct") << others;
    EXPECT_EQ(Load(near, {true, at, "*"}) + Load(near, {false, at, ""}), "directdirect");
    unsetenv(name);
  }
}

}  // namespace feedloom
