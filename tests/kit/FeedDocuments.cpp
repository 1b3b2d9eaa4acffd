#include "kit/FeedDocuments.h"

#include <chrono>

#include "platform/Clock.h"
#include "platform/Text.h"

namespace feedloom {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr std::string_view kSite = "http://site.example/";

std::string Escaped(std::string_view text) {
  const std::string plain = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
  return ReplaceAll(plain, "\"", "&quot;");
}

std::string Element(const std::string& name, std::string_view text) {
  return text.empty() ? "" : "<" + name + ">" + Escaped(text) + "</" + name + ">\n";
}

std::string LinkElement(std::string_view address) {
  return address.empty() ? "" : "<link rel=\"alternate\" href=\"" + Escaped(address) + "\"/>\n";
}

std::string RssItem(const SampleItem& item, const std::string& start, const std::string& date) {
  return start + Element("title", item.title) + Element("link", item.link) +
         Element(date, item.date) + Element("description", item.description) + "</item>\n";
}

}  // namespace

std::string RssDocument(std::string_view title, const std::vector<SampleItem>& items) {
  std::string text(kDeclaration);
  text += "<rss version=\"2.0\"><channel>\n" + Element("title", title) + Element("link", kSite);
  for (const SampleItem& item : items) text += RssItem(item, "<item>\n", "pubDate");
  return text += "</channel></rss>\n";
}

std::string RdfDocument(std::string_view title, const std::vector<SampleItem>& items) {
  std::string text(kDeclaration);
  text +=
      "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\" "
      "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns=\"http://purl.org/rss/1.0/\">\n"
      "<channel rdf:about=\"" +
      std::string(kSite) + "\">\n" + Element("title", title) + Element("link", kSite) +
      "</channel>\n";
  for (const SampleItem& item : items) {
    text += RssItem(item, "<item rdf:about=\"" + Escaped(item.link) + "\">\n", "dc:date");
  }
  return text += "</rdf:RDF>\n";
}

std::string AtomDocument(std::string_view title, const std::vector<SampleItem>& items) {
  std::string text(kDeclaration);
  text += "<feed version=\"0.3\" xmlns=\"http://purl.org/atom/ns#\">\n" + Element("title", title) +
          LinkElement(kSite);
  for (const SampleItem& item : items) {
    text += "<entry>\n" + Element("title", item.title) + LinkElement(item.link) +
            Element("issued", item.date) + Element("summary", item.description) + "</entry>\n";
  }
  return text += "</feed>\n";
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
