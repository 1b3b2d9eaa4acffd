// The frames that a post embeds, and which are not shown; pure functions, any thread.
#pragma once

#include <QUrl>
#include <optional>

namespace feedloom {

enum class FrameKind { Video, Sound, Map, Page };

struct FrameLink {
  FrameKind kind = FrameKind::Video;
  QUrl page;  // shows by itself what the frame would show

  bool operator==(const FrameLink&) const = default;
};

// What the frame at the address `frame` would show; none unless that is http or https.
std::optional<FrameLink> LinkForFrame(const QUrl& frame);

}  // namespace feedloom
