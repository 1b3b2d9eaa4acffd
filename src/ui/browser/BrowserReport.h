#pragma once

namespace feedloom {

// An event that the host's status text reports. The comment behind each value names the detail that
// comes with it.
enum class BrowserReport {
  Hovered,           // the address of the link under the pointer; empty without a link
  Loading,           // a percentage, without the percent sign
  Loaded,            // nothing
  NotLoaded,         // nothing
  Stopped,           // nothing
  LinkRefused,       // the address
  NoOutsideProgram,  // the address
  DownloadRefused,   // the host that it would have come from
  PrintFailed,       // nothing
};

}  // namespace feedloom
