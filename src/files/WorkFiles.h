// Names of files in the work directory that more than one part of the program knows.
#pragma once

namespace feedloom {

// What is remembered of the feeds' servers.
inline constexpr char kFeedMemoryFile[] = "feed_memory";

}  // namespace feedloom
