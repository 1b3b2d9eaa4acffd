#include <gtest/gtest.h>

#include "kit/ShippedSkin.h"
#include "ui/browser/StatusTexts.h"

namespace feedloom {
namespace {

std::string Utf8(const std::string& text) { return CodePage::Korean().ToUtf8(text); }

TEST(StatusTexts, SayWhatTheBrowserDoes) {
  const ShippedSkin skin;
  const auto text = [&](BrowserReport report, const char* detail) {
    return Utf8(StatusText(skin.Get(), report, detail));
  };
  EXPECT_EQ(text(BrowserReport::Hovered, "http://h/%s%d"), "http://h/%s%d");
  EXPECT_EQ(text(BrowserReport::Loading, "42"), "페이지를 여는 중입니다: 42%");
  EXPECT_EQ(text(BrowserReport::Stopped, ""), "");
  EXPECT_EQ(text(BrowserReport::LinkRefused, "tel:%d1"), "열 수 없는 주소입니다: tel:%d1");
}

TEST(StatusTexts, NameTheFileThatIsDownloaded) {
  const ShippedSkin skin;
  const auto text = [&](DownloadEvent event, const char* progress) {
    return Utf8(StatusText(skin.Get(), event, "100%d%s.zip", progress));
  };
  EXPECT_EQ(text(DownloadEvent::Progress, "3.1 MB"), "내려받는 중입니다: 100%d%s.zip (3.1 MB)");
  EXPECT_EQ(text(DownloadEvent::Done, ""), "내려받았습니다: 100%d%s.zip");
}

}  // namespace
}  // namespace feedloom
