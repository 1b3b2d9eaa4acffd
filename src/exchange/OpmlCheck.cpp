#include "exchange/OpmlCheck.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "exchange/OpmlOutlines.h"
#include "feed/WebAddress.h"
#include "files/MemoryFile.h"
#include "text/Text.h"
#include "xml/XmlDom.h"

namespace feedloom {
namespace {

// XML readers make a blank of each line break and tab in an attribute.
bool IsSame(std::string_view a, std::string_view b) {
  const auto blanked = [](char c) { return static_cast<unsigned char>(c) < ' ' ? ' ' : c; };
  return std::ranges::equal(a, b, {}, blanked, blanked);
}

bool IsSame(const OpmlOutline& outline, const Channel& channel, CodePage codePage) {
  return IsSame(outline.text, channel.title) && IsSame(outline.title, channel.title) &&
         outline.xmlUrl == EscapedAddress(Trim(codePage.ToUtf8(channel.xmlLink)));
}

bool IsSame(const OpmlOutline& outline, const SubscriptionFolder& folder, CodePage codePage) {
  return IsSame(outline.text, folder.name) &&
         std::ranges::equal(outline.children, folder.channels,
                            [&](const OpmlOutline& child, const Channel& channel) {
                              return IsSame(child, channel, codePage);
                            });
}

bool ReadsBack(const std::string& opml, const SubscriptionList& list, CodePage codePage) {
  const MemoryFile file(opml);
  XmlDocument document;
  if (document.Load(file.Path(), {}, {.most = kMostListMemory}) != XmlDocument::LoadStatus::Loaded)
    return false;
  const auto outlines = ReadOpml(document.Root(), codePage, OpmlReading::Strict, {});
  return outlines &&
         std::ranges::equal(*outlines, list,
                            [&](const OpmlOutline& outline, const SubscriptionFolder& folder) {
                              return IsSame(outline, folder, codePage);
                            });
}

}  // namespace

OpmlCheck CheckOpml(const std::string& opml, const SubscriptionList& list, CodePage codePage,
                    OpmlEscaping escaping) {
  OpmlCheck result{.readsBack = ReadsBack(opml, list, codePage)};
  if (result.readsBack) return result;
  const auto check = [&](const SubscriptionFolder& alone, const std::string& name) {
    const SubscriptionList part{alone};
    if (ReadsBack(BuildOpml(part, codePage, "", escaping), part, codePage)) return;
    ++result.count;
    if (result.first.size() < kMostNamed) result.first.push_back(name);
  };
  for (const SubscriptionFolder& folder : list) {
    check({folder.name}, folder.name);
    for (const Channel& channel : folder.channels) check({"", {channel}}, channel.title);
  }
  return result;
}

}  // namespace feedloom
