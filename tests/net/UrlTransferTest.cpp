#include <stdlib.h>
#include <sys/stat.h>

#include "kit/FeedServer.h"
#include "kit/Rows.h"
#include "kit/TempFolder.h"
#include "net/TransferPool.h"
#include "net/Url.h"
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

// "me" and "p w": for Basic, and for Digest as RFC 7616 computes it of /digest.
constexpr const char* kBasic = "bWU6cCB3";
constexpr const char* kDigest = "response=\"fa1f0c9abf771f8159577ef2d6b74d0e\"";

struct HostLoginTest : UrlTransferTest {
  // The content, or what went wrong, with the logins of the file.
  std::string Get(const std::string& url, std::optional<GivenLogin> login = {},
                  TransferPool* pool = nullptr) const {
    const auto result =
        Run({.address = url, .web = {.loginFile = file_}, .login = std::move(login), .pool = pool});
    EXPECT_TRUE(result.ok || result.wantsLogin == result.error.starts_with("the server "));
    return result.ok ? "in" : result.error;
  }
  std::string Sent(const FeedServer& server, const std::string& path) const {
    return server.LastHeader(path, "Authorization");
  }

  const Registry registry_{folder_.File("registry.reg")};
  const std::string file_ = HostLoginsPath(registry_);
  const std::string origin_ = UrlOrigin(server_.Url(""));
};

TEST_F(HostLoginTest, GoesToTheServerThatAsksForItAndToNoOther) {
  FeedServer other;
  server_.Protect("/basic", "in", kBasic);
  server_.Challenge("/digest", "in", R"(Digest realm="r", nonce="n")", kDigest);
  server_.Challenge("/bearer", "in", "Bearer", "-");
  server_.Serve("/open", "in");
  server_.Redirect("/away", other.Url("/basic"));
  other.Protect("/basic", "in", kBasic);
  other.Redirect("/home", server_.Url("/digest"));
  const auto get = [this](auto& path) { return Get(server_.Url(path)); };
  ExpectRows(get, {"/basic -> the server wants a name and a password",
                   "/digest -> the server wants a name and a password"});
  ASSERT_TRUE(KeepHostLogin(file_, {origin_, {"me", "wrong"}}));
  ExpectRows(get, {"/digest -> the server refuses the name and the password"});
  ASSERT_TRUE(KeepHostLogin(file_, {origin_, {"me", "p w"}}));
  ExpectRows(get, {"/basic -> in", "/digest -> in", "/open -> in",
                   "/away -> the server wants a name and a password",
                   "/bearer -> The requested URL returned error: 401"});
  EXPECT_EQ(Sent(server_, "/open") + Sent(other, "/basic") + Sent(server_, "/bearer"), "");
  EXPECT_EQ(Get(other.Url("/home")), "in") << "asked again, with its own login";
  EXPECT_EQ(Sent(other, "/home"), "");
  EXPECT_EQ(Get("http://x:y@" + server_.Url("/basic").substr(7)), "in") << "in place of that one";
  EXPECT_EQ(Get("http://me:p%20w@" + other.Url("/basic").substr(7)), "in");
  EXPECT_EQ(Run({.address = "http://x:y@" + server_.Url("/open").substr(7)}).address,
            server_.Url("/open"));
  EXPECT_EQ(Get(server_.Url("/away"), GivenLogin{UrlOrigin(other.Url("")), {"me", "p w"}}), "in");
  EXPECT_EQ(Get(server_.Url("/basic"), GivenLogin{origin_, {"me", "-"}}),
            "the server refuses the name and the password");
}

TEST_F(HostLoginTest, IsKeptWholeForItsUserAlone) {
  const HostLogin odd{"\xED\x95\x9C:[]", "\"\\ ]=\n;"};
  ASSERT_TRUE(KeepHostLogin(file_, {"https://[::1]:8443", odd}));
  ASSERT_TRUE(KeepHostLogin(file_, {origin_, {"a", ""}}) &&
              KeepHostLogin(file_, {origin_, {"b", "c"}}));
  const auto found = FindHostLogin(file_, UrlOrigin("HTTPS://[::1]:8443/x"));
  EXPECT_TRUE(found && found->name == odd.name && found->password == odd.password);
  EXPECT_EQ(FindHostLogin(file_, origin_)->password, "c");
  EXPECT_FALSE(FindHostLogin(file_, UrlOrigin("https://[::1]/x")) || FindHostLogin("", origin_));
  struct stat status {};
  EXPECT_TRUE(stat(file_.c_str(), &status) == 0 && (status.st_mode & 0777) == 0600);
  folder_.Write("logins.reg", "damaged");
  EXPECT_FALSE(FindHostLogin(file_, origin_) || KeepHostLogin(file_, {origin_, odd}));
  EXPECT_EQ(folder_.Read("logins.reg"), "damaged");
}

TEST_F(HostLoginTest, ACookieLivesForOneTransfer) {
  server_.WantCookie("/feed", "in");
  server_.Serve("/open", "in");
  server_.KeepConnections();
  TransferPool pool;
  for (const char* path : {"/feed", "/open", "/feed"})
    EXPECT_EQ(Get(server_.Url(path), {}, &pool), "in");
  EXPECT_EQ(server_.LastHeader("/open", "Cookie"), "");
  EXPECT_TRUE(server_.Requests("/feed") == 4 && server_.Connections() == 1);
}

}  // namespace feedloom
