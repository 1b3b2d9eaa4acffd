// Parses any bytes as an OPML list. Only web addresses are imported, every feed is counted as
// imported or skipped, and an export of the result parses back to the same list.
#include <algorithm>

#include "exchange/ImportPlan.h"
#include "exchange/OpmlText.h"
#include "fuzz/FuzzKit.h"
#include "text/Text.h"

namespace feedloom {
namespace {

const std::string kListName = "list";

std::optional<std::vector<OpmlOutline>> ReadOutlines(std::string_view bytes, CodePage codePage) {
  const MemoryFile document(bytes);
  XmlDocument tree;
  if (tree.Load(document.Path()) != XmlDocument::LoadStatus::Loaded) return std::nullopt;
  return ReadOpml(tree.Root(), codePage, {});
}

void CheckOutline(const OpmlOutline& outline, CodePage codePage) {
  for (const std::string* text :
       {&outline.title, &outline.url, &outline.text, &outline.type, &outline.htmlUrl}) {
    RequireValid(*text, codePage, "an outline's text is one of the module's code page");
  }
  Require(std::ranges::all_of(outline.xmlUrl, [](char c) { return c > ' ' && c <= '~'; }),
          "a feed's address is ASCII without blanks");
  Require(outline.deeperFeeds >= 0, "feeds are counted");
  for (const OpmlOutline& child : outline.children) {
    Require(child.children.empty(), "a list has two levels");
    CheckOutline(child, codePage);
  }
}

// The number of feeds and of invalid entries: the sum of what is imported and skipped.
int CountEntries(const std::vector<OpmlOutline>& outlines) {
  int count = 0;
  for (const OpmlOutline& outline : outlines) {
    if (!outline.xmlUrl.empty()) ++count;
    for (const OpmlOutline& child : outline.children) {
      const bool isEntry = !child.xmlUrl.empty() || child.deeperFeeds == 0;
      count += child.deeperFeeds + (isEntry ? 1 : 0);
    }
  }
  return count;
}

void CheckChannel(const Channel& channel, CodePage codePage) {
  const std::string address = ToUpperAscii(channel.xmlLink);
  Require(address.starts_with("HTTP://") || address.starts_with("HTTPS://"),
          "only addresses of the web are taken");
  Require(!channel.title.empty(), "a channel has a title");
  RequireValid(channel.title, codePage, "a title is in the module's code page");
}

// True when an export does not change the text or break the document: line breaks become blanks,
// and these characters are not escaped.
bool IsKept(const std::string& text) {
  return std::ranges::none_of(
      text, [](char c) { return c == '"' || c == '<' || static_cast<unsigned char>(c) < ' '; });
}

bool IsKept(const SubscriptionList& list) {
  return std::ranges::all_of(list, [](const SubscriptionFolder& folder) {
    return IsKept(folder.name) && std::ranges::all_of(folder.channels, [](const Channel& channel) {
             return IsKept(channel.title) && IsKept(channel.xmlLink);
           });
  });
}

void CheckExport(const SubscriptionList& list, CodePage codePage) {
  if (!IsKept(list)) return;
  const std::string opml = BuildOpml(list, codePage, "2026-11-22T09:30:00");
  const auto outlines = ReadOutlines(opml, codePage);
  Require(outlines.has_value(), "an export can be read");
  const auto plan = PlanImport(*outlines, kListName);
  Require(plan && plan->leftOut == 0, "an export is taken whole");
  RequireEqual(BuildOpml(plan->folders, codePage, "2026-11-22T09:30:00"), opml,
               "an export reads back the same");
}

}  // namespace

void CheckInput(FuzzInput input) {
  const CodePage codePage = input.TakeCodePage();
  const auto outlines = ReadOutlines(input.Rest(), codePage);
  if (!outlines) return;
  for (const OpmlOutline& outline : *outlines) CheckOutline(outline, codePage);
  const auto plan = PlanImport(*outlines, kListName);
  Require(plan.has_value(), "a short list has a plan");
  Require(CountChannels(plan->folders) + plan->leftOut == CountEntries(*outlines),
          "each feed is taken or left out");
  for (const SubscriptionFolder& folder : plan->folders) {
    Require(!folder.name.empty(), "a folder has a name");
    for (const Channel& channel : folder.channels) CheckChannel(channel, codePage);
  }
  CheckExport(plan->folders, codePage);
}

}  // namespace feedloom
