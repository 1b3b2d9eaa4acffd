// Parses any bytes as an OPML list. Only web addresses are imported, every feed is counted as
// imported or skipped, an export of the result parses back to the same list, and what is merged
// twice adds nothing.
#include <algorithm>

#include "exchange/ImportPlan.h"
#include "exchange/Missing.h"
#include "exchange/OpmlCheck.h"
#include "fuzz/FuzzKit.h"
#include "text/Text.h"

namespace feedloom {
namespace {

const std::string kListName = "list";

std::optional<std::vector<OpmlOutline>> ReadOutlines(std::string_view bytes, CodePage codePage,
                                                     OpmlReading reading) {
  const MemoryFile document(bytes);
  XmlDocument tree;
  if (tree.Load(document.Path()) != XmlDocument::LoadStatus::Loaded) return std::nullopt;
  return ReadOpml(tree.Root(), codePage, reading, {});
}

void CheckOutline(const OpmlOutline& outline, CodePage codePage, int levels) {
  for (const std::string* text : {&outline.title, &outline.text, &outline.type, &outline.htmlUrl}) {
    RequireValid(*text, codePage, "an outline's text is one of the module's code page");
  }
  for (const std::string* address : {&outline.xmlUrl, &outline.url}) {
    Require(std::ranges::all_of(*address, [](char c) { return c > ' ' && c <= '~'; }),
            "a feed's address is ASCII without blanks");
  }
  Require(static_cast<std::size_t>(outline.deeperFeeds) >= outline.deeper.size(),
          "feeds are counted");
  for (const OpmlOutline& child : outline.children) {
    Require(levels > 1, "a strict list has two levels");
    CheckOutline(child, codePage, levels - 1);
  }
}

// The number of feeds and of invalid entries: the sum of what is imported and skipped.
int CountEntries(const std::vector<OpmlOutline>& outlines, bool isTop = true) {
  int count = 0;
  for (const OpmlOutline& outline : outlines) {
    const bool isEmpty = !isTop && outline.children.empty() && outline.deeperFeeds == 0;
    if (isEmpty || !FeedAddress(outline).empty()) ++count;
    count += outline.deeperFeeds + CountEntries(outline.children, false);
  }
  return count;
}

void CheckChannel(const Channel& channel, CodePage codePage) {
  std::string address = ToUpperAscii(channel.xmlLink);
  if (address.starts_with("FEED:")) address.erase(0, 5);
  Require(address.starts_with("HTTP://") || address.starts_with("HTTPS://") ||
              (address.starts_with("//") && address.size() < channel.xmlLink.size()),
          "only addresses of the web are taken");
  Require(!channel.title.empty(), "a channel has a title");
  RequireValid(channel.title, codePage, "a title is in the module's code page");
}

// What the check calls readable is what a reader takes whole; all that is escaped is.
void CheckExport(const SubscriptionList& list, CodePage codePage, OpmlEscaping escaping) {
  const std::string opml = BuildOpml(list, codePage, "2026-11-22T09:30:00", escaping);
  const OpmlCheck check = CheckOpml(opml, list, codePage, escaping);
  Require(check.readsBack || escaping == OpmlEscaping::AmpersandOnly, "what is escaped reads back");
  if (!check.readsBack) return Require(check.count > 0, "some name is the reason");
  const auto outlines = ReadOutlines(opml, codePage, OpmlReading::Strict);
  Require(outlines.has_value(), "an export can be read");
  const auto plan = PlanImport(*outlines, kListName);
  Require(plan && plan->leftOut == 0, "an export is taken whole");
  Require(CountChannels(plan->folders) == CountChannels(list), "no channel gets lost");
  Require(MissingFrom(list, plan->folders).present == CountChannels(list),
          "an export has the addresses of the list");
}

void CheckMerge(const SubscriptionList& list) {
  const MissingSubscriptions all = MissingFrom({}, list);
  Require(all.present == 0 && all.folders.size() == list.size(), "to nothing all is added");
  const MissingSubscriptions none = MissingFrom(list, list);
  Require(none.folders.empty() && none.present == CountChannels(list), "twice adds nothing");
  Require(Overlaps(list, list) != list.empty(), "a list overlaps itself");
  const SubscriptionList half(list.begin(), list.begin() + static_cast<int>(list.size() / 2));
  const MissingSubscriptions rest = MissingFrom(half, list);
  Require(rest.present + CountChannels(rest.folders) == CountChannels(list),
          "each channel is there or missing");
}

void CheckList(std::string_view bytes, CodePage codePage, OpmlReading reading) {
  const auto outlines = ReadOutlines(bytes, codePage, reading);
  if (!outlines) return;
  const int levels = reading == OpmlReading::Strict ? 2 : 256;
  for (const OpmlOutline& outline : *outlines) CheckOutline(outline, codePage, levels);
  const auto plan = PlanImport(*outlines, kListName);
  Require(plan.has_value(), "a short list has a plan");
  Require(CountChannels(plan->folders) + plan->leftOut == CountEntries(*outlines),
          "each feed is taken or left out");
  Require(plan->named.size() == std::min(static_cast<std::size_t>(plan->leftOut), kMostNamed),
          "what is left out is named");
  for (const SubscriptionFolder& folder : plan->folders) {
    Require(!folder.name.empty(), "a folder has a name");
    for (const Channel& channel : folder.channels) CheckChannel(channel, codePage);
  }
  CheckMerge(plan->folders);
  CheckExport(plan->folders, codePage, OpmlEscaping::AmpersandOnly);
  CheckExport(plan->folders, codePage, OpmlEscaping::Everything);
}

}  // namespace

void CheckInput(FuzzInput input) {
  const CodePage codePage = input.TakeCodePage();
  CheckList(input.Rest(), codePage, OpmlReading::Strict);
  CheckList(input.Rest(), codePage, OpmlReading::Lenient);
}

}  // namespace feedloom
