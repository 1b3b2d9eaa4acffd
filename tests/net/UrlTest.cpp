#include "kit/Rows.h"
#include "net/Url.h"

namespace feedloom {

TEST(UrlTest, TakesAddressesApartAndResolvesReferences) {
  ExpectRows([](auto& url) { return UrlScheme(url) + " " + UrlHost(url) + " " + UrlPath(url); },
             {"https://u@a.kr:81/b%20c?d#e -> https a.kr /b c", "a.kr:81/b -> http a.kr /b",
              "no address ->   "});
  ExpectRows([](auto& reference) { return ResolveUrl("http://a/b/c/d;p?q", reference); },
             {"g/../h -> http://a/b/c/h", "../../../g -> http://a/g", "?y -> http://a/b/c/d;p?y",
              "g?y/../z -> http://a/b/c/g?y/../z", "//h/g -> http://h/g",
              "https://h:8443/g?x[]=1 -> https://h:8443/g?x[]=1",
              "http://[::1]:80/g -> http://[::1]:80/g", "file:///etc/passwd -> file:///etc/passwd",
              "g h/한?한 -> http://a/b/c/g%20h/%ed%95%9c?%ed%95%9c", "javascript:alert(1) -> ",
              "file:a -> ", " -> ", "#part -> "});
}

}  // namespace feedloom
