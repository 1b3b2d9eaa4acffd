#pragma once

namespace feedloom {

// The user's settings, with the values that are stored. shell/SettingsStore.h stores them.
struct Settings {
  int newFeedMode = 0;             // 0: a timer refreshes the channels; 1: no timer
  int newFeedDuration = 0;         // the timer's interval: 0 to 3 for 15, 30, 60, 120 minutes
  int newFeedMsgDuration = 0;      // interval of notices: 0 to 2 for 15, 30, 60 minutes; 3: none
  int newFeedMsgTransparency = 0;  // of the notice's window, in percent
  int previewMode = 0;             // 0: posts are shown as generated pages; 1: as their web pages
  int feedDeleteMode = 0;          // 0: old posts are deleted at the start; 1: never
  int feedDeleteDate = 0;          // age in days from which a post is old

  bool operator==(const Settings&) const = default;
};

}  // namespace feedloom
