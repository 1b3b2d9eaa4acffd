#include "exchange/ImportPlan.h"

#include <filesystem>

#include "feed/WebAddress.h"
#include "net/Url.h"
#include "text/Text.h"

namespace feedloom {
namespace {

std::string NameOf(const OpmlOutline& outline, const std::string& otherwise) {
  for (const std::string& name : {outline.text, outline.title}) {
    if (const auto trimmed = Trim(name); !trimmed.empty()) return std::string(trimmed);
  }
  return otherwise;
}

// Builds the plan from the top-level outlines, one after the other.
class Planner {
 public:
  explicit Planner(const std::string& listName) : listName_(listName) {}

  void Add(const OpmlOutline& outline) {
    if (outline.children.empty() && !outline.xmlUrl.empty()) return AddLoneFeed(outline);
    SubscriptionFolder& folder = plan_.folders.emplace_back();
    folder.name = NameOf(outline, listName_);
    if (!outline.xmlUrl.empty()) AddChannel(outline, folder);
    for (const OpmlOutline& child : outline.children) AddChild(child, folder);
  }

  ImportPlan Result() && { return std::move(plan_); }

 private:
  // Adds a top-level feed to the folder for such feeds, which the first valid one creates.
  void AddLoneFeed(const OpmlOutline& outline) {
    if (!loneFeedsFolder_ && IsWebAddress(outline.xmlUrl)) {
      loneFeedsFolder_ = plan_.folders.size();
      plan_.folders.push_back({listName_});
    }
    loneFeedsFolder_ ? AddChannel(outline, plan_.folders[*loneFeedsFolder_]) : CountLeftOut(1);
  }

  void CountLeftOut(int feeds) { plan_.leftOut += feeds; }

  void AddChild(const OpmlOutline& outline, SubscriptionFolder& folder) {
    CountLeftOut(outline.deeperFeeds);
    if (!outline.xmlUrl.empty()) return AddChannel(outline, folder);
    if (outline.deeperFeeds == 0) CountLeftOut(1);
  }

  void AddChannel(const OpmlOutline& outline, SubscriptionFolder& folder) {
    // A list from somewhere else must not make the program read local files or run scripts.
    if (!IsWebAddress(outline.xmlUrl)) return CountLeftOut(1);
    folder.channels.push_back({.title = NameOf(outline, outline.xmlUrl),
                               .xmlLink = outline.xmlUrl,
                               .htmlLink = std::string(Trim(outline.htmlUrl))});
  }

  const std::string& listName_;
  ImportPlan plan_;
  std::optional<std::size_t> loneFeedsFolder_;
};

}  // namespace

std::optional<ImportPlan> PlanImport(const std::vector<OpmlOutline>& outlines,
                                     const std::string& listName) {
  if (CountOutlines(outlines) > kMaxOutlines) return std::nullopt;
  Planner planner(listName);
  for (const OpmlOutline& outline : outlines) planner.Add(outline);
  return std::move(planner).Result();
}

std::string ListName(const std::string& place) {
  const bool isAddress = place.find("://") != std::string::npos;
  const std::string name =
      std::filesystem::path(isAddress ? UrlPath(place) : place).stem().string();
  return name.empty() && isAddress ? UrlHost(place) : name;
}

}  // namespace feedloom
