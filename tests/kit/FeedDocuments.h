// RSS 2.0 and OPML documents for tests, as UTF-8 texts.
#pragma once

#include <vector>

#include "text/Text.h"
#include "threads/Clock.h"

namespace feedloom {

// All texts are UTF-8 and unescaped; an empty one leaves its element out.
struct SampleItem {
  std::string title, link, date, description;  // the date as RFC 822 has it
};

inline std::string RssDocument(const std::string& title, const std::vector<SampleItem>& items) {
  const auto element = [](const std::string& name, const std::string& text) {
    const std::string plain = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
    return text.empty() ? "" : "<" + name + ">" + plain + "</" + name + ">\n";
  };
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rss version=\"2.0\"><channel>\n" +
      element("title", title) + element("link", "http://site.example/");
  for (const SampleItem& item : items)
    text += "<item>\n" + element("title", item.title) + element("link", item.link) +
            element("pubDate", item.date) + element("description", item.description) + "</item>\n";
  return text += "</channel></rss>\n";
}

// `count` items: "Post 1" with link `baseLink` + "1" and description "Text 1", "Post 2" and so on,
// a minute between their dates, the first one the newest.
inline std::vector<SampleItem> NumberedItems(const std::string& baseLink, int count) {
  const std::chrono::sys_seconds newest = std::chrono::sys_days{std::chrono::year(2007) / 6 / 10};
  std::vector<SampleItem> items;
  for (int i = 1; i <= count; ++i) {
    const std::string number = std::to_string(i);
    items.push_back({"Post " + number, baseLink + number,
                     FormatLocalTime(newest - std::chrono::minutes(i), "%a, %d %b %Y %H:%M:%S %z"),
                     "Text " + number});
  }
  return items;
}
inline std::string NumberedRss(const std::string& title, const std::string& baseLink, int count) {
  return RssDocument(title, NumberedItems(baseLink, count));
}

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
