// The source and the result of an import, as plain values.
#pragma once

#include <string>
#include <vector>

namespace feedloom {

// Where a list is to be read from.
struct ListSource {
  // The path of a file, in the file system's encoding, or a complete address in ASCII, as the user
  // entered it.
  std::string place;
  bool isAddress = false;
  // Whether the list comes from another program. Then the user is asked before anything is added,
  // and when it is a feed in place of a list, its address comes into the dialog that adds a
  // channel.
  bool asksFirst = false;
};

// What to do with what is there already: Rename adds all, and a folder whose name is taken under
// another one ("News-1"); Merge adds only what is missing (MissingFrom), to the folders of the same
// names.
enum class NameClash { Rename, Merge };

// Why an entry of a list is not imported: it has no address of a feed, an address that is not of
// the web, or it stands in a folder within a folder.
enum class LeftOutReason { NoAddress, NotOfTheWeb, TooDeep };

struct LeftOutEntry {
  std::string name;  // in the module's code page; else the address; empty when it has neither
  LeftOutReason reason = LeftOutReason::NoAddress;

  bool operator==(const LeftOutEntry&) const = default;
};

// Numbers of channels.
struct ImportSums {
  int added = 0;
  int present = 0;                       // not added, because the address is there already
  int leftOut = 0;                       // entries without a feed, too
  std::vector<LeftOutEntry> named = {};  // the first of those that the list's text is the reason of
  bool isComplete = true;                // false: the import ended early
};

}  // namespace feedloom
