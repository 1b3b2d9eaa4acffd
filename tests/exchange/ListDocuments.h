// OPML documents as the tests write them, and what a store has of them.
#pragma once

#include <string>

#include "store/StoreKit.h"

namespace feedloom {

inline std::string OpmlDocument(const std::string& outlines,
                                const std::string& declaration = "<?xml version='1.0'?>") {
  return declaration + "<opml version='2.0'><head/><body>" + outlines + "</body></opml>";
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

// "folder: title=address ...; ...", folders by order, channels as they were added.
inline std::string StoredList(const TestStore& db) {
  return db.Value(
      "select ifnull(group_concat(line, '; '), '') from (select folder_name || ':' || "
      "ifnull((select group_concat(' ' || channel_title || '=' || channel_xmllink, '') from "
      "(select "
      "* from TB_CHANNEL where channel_folderID = folder_id order by channel_id)), '') line from "
      "TB_FOLDER order by folder_order, folder_id)");
}

}  // namespace feedloom
