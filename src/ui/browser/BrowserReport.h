#pragma once

namespace feedloom {

// What the browser tells the user in the host's status text. Behind each, what goes with it.
enum class BrowserReport {
  Hovered,           // the address of the link under the pointer; empty when it is left
  Loading,           // a percentage, without its sign
  Loaded,            // nothing
  NotLoaded,         // nothing
  Stopped,           // nothing
  LinkRefused,       // the address
  NoOutsideProgram,  // the address
  PrintFailed,       // nothing
};

}  // namespace feedloom
