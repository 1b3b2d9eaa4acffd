#pragma once

#include <cstddef>
#include <functional>

namespace feedloom {

// How much memory a document may take. The estimate counts its tree and one copy of all its texts.
struct XmlLimits {
  std::size_t most = 32u << 20;  // bytes
  std::size_t atOnce = most;     // bytes that a document may take before askForMore is called
  // Returns whether the document may take up to `most`. Called at most once, on the thread that
  // loads; it may block.
  std::function<bool()> askForMore = {};
};

}  // namespace feedloom
