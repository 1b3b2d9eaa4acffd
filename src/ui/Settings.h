#pragma once

namespace feedloom {

// The user's settings as numbers, as they are stored. Storing them: shell/SettingsStore.h.
struct Settings {
  int newFeedMode = 0;             // 0: channels are refreshed by a timer; 1: not
  int newFeedDuration = 0;         // the timer's interval: 0 to 3 for 15, 30, 60, 120 minutes
  int newFeedMsgDuration = 0;      // of the new-post notice: 0 to 2 for 15, 30, 60 minutes
  int newFeedMsgTransparency = 0;  // of its window, percent
  int previewMode = 0;             // 0: posts show as generated pages; 1: as their web pages
  int feedDeleteMode = 0;          // 0: old posts are deleted at start; 1: never
  int feedDeleteDate = 0;          // so many days old

  bool operator==(const Settings&) const = default;
};

}  // namespace feedloom
