#include "ui/browser/FrameLinks.h"

#include <QRegularExpression>

#include "ui/browser/NavigationRules.h"

namespace feedloom {
namespace {

// A pattern of host and path, and the page to which the link leads: \1 is the pattern's group. An
// empty page stands for the frame's own address.
struct FrameRule {
  const char* pattern;
  FrameKind kind;
  const char* page;
};
constexpr FrameRule kFrameRules[] = {
    {R"(^(?:www\.)?youtube(?:-nocookie)?\.com/embed/(?!videoseries)([\w-]+)/?$)", FrameKind::Video,
     R"(https://www.youtube.com/watch?v=\1)"},
    {R"(^player\.vimeo\.com/video/(\d+)/?$)", FrameKind::Video, R"(https://vimeo.com/\1)"},
    {R"(^(?:www\.)?dailymotion\.com/embed/video/(\w+)$)", FrameKind::Video,
     R"(https://www.dailymotion.com/video/\1)"},
    {R"(^tv\.naver\.com/embed/(\d+)$)", FrameKind::Video, R"(https://tv.naver.com/v/\1)"},
    {R"(^tv\.kakao\.com/embed/player/cliplink/(\d+)$)", FrameKind::Video,
     R"(https://tv.kakao.com/v/\1)"},
    {R"(^(?:www\.)?youtube(?:-nocookie)?\.com/embed/)", FrameKind::Video, ""},
    {R"(\.(?:mp4|m4v|webm|ogv)$)", FrameKind::Video, ""},
    {R"(^w\.soundcloud\.com/player/?$)", FrameKind::Sound, ""},
    {R"(\.(?:mp3|m4a|ogg|oga|wav)$)", FrameKind::Sound, ""},
    {R"(^(?:www\.|maps\.)?google\.[a-z.]+/maps\b)", FrameKind::Map, ""},
    {R"(^(?:www\.)?openstreetmap\.org/export/embed\.html$)", FrameKind::Map, ""},
};

}  // namespace

std::optional<FrameLink> LinkForFrame(const QUrl& frame) {
  if (!IsWebAddress(frame)) return {};
  const QString place = frame.host(QUrl::FullyEncoded) + frame.path(QUrl::FullyEncoded);
  for (const FrameRule& rule : kFrameRules) {
    const auto match = QRegularExpression(rule.pattern).match(place);
    if (!match.hasMatch()) continue;
    const QString page = QString(rule.page).replace(QLatin1String("\\1"), match.captured(1));
    return FrameLink{rule.kind, page.isEmpty() ? frame : QUrl(page)};
  }
  return FrameLink{FrameKind::Page, frame};
}

}  // namespace feedloom
