#include "kit/FeedDocuments.h"

#include "platform/Clock.h"
#include "platform/Text.h"

namespace feedloom {
namespace {

std::string Escaped(std::string_view text) {
  const std::string plain = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
  return ReplaceAll(plain, "\"", "&quot;");
}

std::string Element(const std::string& name, std::string_view text) {
  return text.empty() ? "" : "<" + name + ">" + Escaped(text) + "</" + name + ">\n";
}

}  // namespace

std::string RssDocument(std::string_view title, const std::vector<SampleItem>& items) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rss version=\"2.0\"><channel>\n" +
      Element("title", title) + Element("link", "http://site.example/");
  for (const SampleItem& item : items) {
    text += "<item>\n" + Element("title", item.title) + Element("link", item.link) +
            Element("pubDate", item.date) + Element("description", item.description) + "</item>\n";
  }
  return text += "</channel></rss>\n";
}

std::vector<SampleItem> NumberedItems(std::string_view baseLink, int count) {
  const std::chrono::sys_seconds newest = std::chrono::sys_days{std::chrono::year(2007) / 6 / 10};
  std::vector<SampleItem> items;
  for (int i = 1; i <= count; ++i) {
    const std::string number = std::to_string(i);
    items.push_back({"Post " + number, std::string(baseLink) + number,
                     FormatLocalTime(newest - std::chrono::minutes(i), "%a, %d %b %Y %H:%M:%S %z"),
                     "Text " + number});
  }
  return items;
}

std::string NumberedRss(std::string_view title, std::string_view baseLink, int count) {
  return RssDocument(title, NumberedItems(baseLink, count));
}

}  // namespace feedloom
