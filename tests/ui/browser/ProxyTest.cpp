// The browser behind a proxy. The engine takes it once in a process, so this is a program of its
// own.
#include "net/ProxySettings.h"
#include "ui/browser/BrowserFixture.h"
#include "ui/browser/EngineProxy.h"

namespace feedloom {
namespace {

struct Proxied : BrowserFixture {
  static FeedServer& Proxy() {
    static FeedServer proxy;
    return proxy;
  }
  static void SetUpTestSuite() {
    BrowserFixture::SetUpTestSuite();
    const std::string at = "127.0.0.1:" + std::to_string(Proxy().Port());
    UseProxyInEngine({true, "http=" + at, "127.0.0.*"});
  }
};

TEST_F(Proxied, PagesComeThroughTheProxyAndThoseOfExceptionsDirectly) {
  Proxy().Serve("http://far.example/", "proxied", "text/html");
  Proxy().Serve("http://localhost/", "proxied", "text/html");
  for (const char* far : {"http://far.example/", "http://localhost/"}) {
    WaitForPage([&] { view_.Navigate(QUrl(far)); });
    EXPECT_EQ(Text(), "proxied") << far;
  }
  Visit("/near", "direct");
  EXPECT_EQ(Text(), "direct");
}

}  // namespace
}  // namespace feedloom
