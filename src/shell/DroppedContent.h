// What the user drops on the window from another program, or has a host hand over. Interface thread
// only.
#pragma once

#include <string>

class QMimeData;

namespace feedloom {

struct DroppedContent {
  enum class Kind {
    kFile,       // one that can be read; `text` is its path, in the file system's encoding
    kAddress,    // of a web page or a feed; `text` is the address in ASCII
    kNoFile,     // a directory, or what is missing or cannot be read; `text` is its name in UTF-8
    kSeveral,    // more than one file or address
    kNoAddress,  // anything else
  };
  Kind kind = Kind::kNoAddress;
  std::string text = {};

  bool operator==(const DroppedContent&) const = default;
};

// Whether a drag from outside the module may hold something that the window takes: text, or the
// addresses of files or pages.
bool MayBeDropped(const QMimeData& data);

DroppedContent ReadDrop(const QMimeData& data);

// The same of what a host hands over: an address in ASCII, or an absolute path in the file system's
// encoding.
DroppedContent ReadHandedOver(const std::string& content);

}  // namespace feedloom
