#include "exchange/ImportPlan.h"

#include <filesystem>

#include "ingest/FeedAddress.h"
#include "platform/Text.h"
#include "platform/UrlParts.h"

namespace feedloom {
namespace {

constexpr std::size_t kLongestList = 100'000;  // outlines

std::size_t CountOutlines(const std::vector<OpmlOutline>& outlines) {
  std::size_t count = outlines.size();
  for (const OpmlOutline& outline : outlines) count += outline.children.size();
  return count;
}

std::string NameOf(const OpmlOutline& outline, const std::string& otherwise) {
  for (const std::string& name : {outline.text, outline.title}) {
    if (const auto trimmed = Trim(name); !trimmed.empty()) return std::string(trimmed);
  }
  return otherwise;
}

// Puts the plan together, one outline after the other.
class Planner {
 public:
  explicit Planner(const std::string& listName) : listName_(listName) {}

  void Take(const OpmlOutline& outline) {
    if (outline.children.empty() && !outline.xmlUrl.empty()) return TakeChannel(outline, Loose());
    SubscriptionFolder& folder = plan_.folders.emplace_back();
    folder.name = NameOf(outline, listName_);
    if (!outline.xmlUrl.empty()) TakeChannel(outline, folder);
    for (const OpmlOutline& child : outline.children) TakeChild(child, folder);
  }

  ImportPlan Result() && { return std::move(plan_); }

 private:
  // Where the feeds without a folder go.
  SubscriptionFolder& Loose() {
    if (!loose_) {
      loose_ = plan_.folders.size();
      plan_.folders.push_back({listName_});
    }
    return plan_.folders[*loose_];
  }

  void TakeChild(const OpmlOutline& outline, SubscriptionFolder& folder) {
    plan_.leftOut += outline.deeperFeeds;
    if (!outline.xmlUrl.empty()) return TakeChannel(outline, folder);
    if (outline.deeperFeeds == 0) ++plan_.leftOut;
  }

  void TakeChannel(const OpmlOutline& outline, SubscriptionFolder& folder) {
    // A list must not lead to the machine's own files, nor to a script.
    if (!IsWebAddress(outline.xmlUrl)) {
      ++plan_.leftOut;
      return;
    }
    folder.channels.push_back(
        {NameOf(outline, outline.xmlUrl), outline.xmlUrl, std::string(Trim(outline.htmlUrl))});
  }

  const std::string& listName_;
  ImportPlan plan_;
  std::optional<std::size_t> loose_;
};

}  // namespace

std::optional<ImportPlan> PlanImport(const std::vector<OpmlOutline>& outlines,
                                     const std::string& listName) {
  if (CountOutlines(outlines) > kLongestList) return std::nullopt;
  Planner planner(listName);
  for (const OpmlOutline& outline : outlines) planner.Take(outline);
  return std::move(planner).Result();
}

std::string ListName(const std::string& place) {
  const bool isAddress = place.find("://") != std::string::npos;
  const std::string name =
      std::filesystem::path(isAddress ? UrlPath(place) : place).stem().string();
  return name.empty() && isAddress ? UrlHost(place) : name;
}

}  // namespace feedloom
