#pragma once

#include <string>

namespace feedloom {

// The channel that a dialog is about. Texts are in the module's code page; names do not include
// unread counts.
struct ChannelFacts {
  int id = 0;
  std::string title;
  std::string xmlLink;  // the address of the feed
  int folderId = 0;
  std::string folderName;
};

}  // namespace feedloom
