#include "kit/Rows.h"
#include "net/RequestAddress.h"
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

TEST(UrlTest, TellsTheServerAndHidesTheLogin) {
  ExpectRows(
      [](auto& url) { return UrlOrigin(url) + " " + UrlWithoutLogin(url); },
      {"https://u:p@A.kr/@b -> https://A.kr https://A.kr/@b",
       "http://a:81?u=b@c -> http://a:81 http://a:81?u=b@c", "http://a:80 -> http://a http://a:80",
       "u:p@a/b ->  a/b", "feed://u:p@a b/ ->  feed://a b/", "file:///a@b ->  file:///a@b"});
}

TEST(UrlTest, WhatIsRequestedIsFitForTheWireAndLocalOnlyWhenTyped) {
  ExpectRows(
      [](auto& address) { return RequestAddress(address); },
      {"\t HTTP://A.kr/x y|z?q=<\"[1]>\\%7c%zz \n -> "
       "HTTP://A.kr/x%20y%7Cz?q=%3C%22%5B1%5D%3E%5C%7c%25zz",
       "a.kr:81/b?u=http://c -> http://a.kr:81/b?u=http://c", "//a.kr -> http://a.kr",
       "ftp.a.kr/x -> http://ftp.a.kr/x", "feed:https://a/ -> https://a/",
       "FEED://a/b -> http://a/b", "feed:a/b -> http://a/b", "feed://https://a/ -> https://a/",
       "https://u:p@b\u00FCcher.kr:81/ -> https://u:p@xn--bcher-kva.kr:81/",
       "http://%ED%95%9C.kr/한 -> http://xn--6q8b.kr/%ED%95%9C",
       "http://[::1]:80/g -> http://[::1]:80/g", "file:///a b -> file:///a%20b",
       "feed:file:///a -> feed:file:///a", "feed://FILE:/a -> feed://FILE:/a",
       "no address -> no address", " -> "});
}

}  // namespace feedloom
