// OPML documents as the tests write them.
#pragma once

#include "store/StoreKit.h"

namespace feedloom {

inline std::string OpmlDocument(const std::string& outlines, const std::string& doctype = "") {
  return "<?xml version='1.0'?>" + doctype + "<opml version='2.0'><head/><body>" + outlines +
         "</body></opml>";
}

inline std::string FeedOutline(const std::string& title, const std::string& address) {
  return "<outline text='" + title + "' xmlUrl='" + address + "'/>";
}

// `count` channels "c1" ... in one folder.
inline std::string NumberedFolder(const std::string& name, int count) {
  std::string text = "<outline text='" + name + "'>";
  for (int i = 1; i <= count; ++i) {
    const std::string number = std::to_string(i);
    text += FeedOutline("c" + number, "http://" + name + ".example/" + number);
  }
  return text + "</outline>";
}

}  // namespace feedloom
