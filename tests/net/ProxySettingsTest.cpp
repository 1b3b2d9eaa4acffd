#include "kit/TempFolder.h"
#include "net/ProxySettings.h"

namespace feedloom {

TEST(ProxySettingsTest, CountWhenTheProxyIsEnabled) {
  const TempFolder folder;
  const Registry registry(folder.File("registry"));
  const char* const key =
      R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Internet Settings)";
  ASSERT_TRUE(registry.WriteString(key, "ProxyServer", "ftp=f:2; HTTP = h:80 ;https=s:4;"));
  ASSERT_TRUE(registry.WriteString(key, "ProxyOverride", "x; *.y.kr;*z;;<LOCAL>;*"));
  for (const bool isOn : {false, true}) {
    ASSERT_TRUE(registry.WriteDword(key, "ProxyEnable", isOn ? 1 : 0));
    const ProxySettings settings = ReadProxySettings(registry);
    EXPECT_EQ(ProxyFor(settings, "http") + ProxyFor(settings, "https"), isOn ? "h:80s:4" : "");
    EXPECT_EQ(DirectHosts(settings, "h.kr"), isOn ? "x,.y.kr,z,localhost,127.0.0.1,*" : "");
    EXPECT_EQ(DirectHosts(settings, "near"), isOn ? "x,.y.kr,z,localhost,127.0.0.1,near,*" : "");
  }
  EXPECT_EQ(ProxyFor({true, "any:80", ""}, "https") + ProxyFor({true, "ftp=f:2", ""}, "http"),
            "any:80");
  EXPECT_EQ(DirectHosts({true, "", "127.*;10.1.*;a*.kr;b*;1.2.3.4.*"}, "A1.kr"),
            "127.0.0.0/8,10.1.0.0/16,a*.kr,A1.kr,b*,1.2.3.4.*");
}

}  // namespace feedloom
