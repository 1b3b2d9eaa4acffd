#include "exchange/ImportPlan.h"

#include <filesystem>

#include "ingest/FeedAddress.h"
#include "platform/Text.h"
#include "platform/UrlParts.h"

namespace feedloom {
namespace {

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
    if (outline.children.empty() && !outline.xmlUrl.empty()) return TakeLoose(outline);
    SubscriptionFolder& folder = plan_.folders.emplace_back();
    folder.name = NameOf(outline, listName_);
    if (!outline.xmlUrl.empty()) TakeChannel(outline, folder);
    for (const OpmlOutline& child : outline.children) TakeChild(child, folder);
  }

  ImportPlan Result() && { return std::move(plan_); }

 private:
  // A feed without a folder.
  void TakeLoose(const OpmlOutline& outline) {
    if (!loose_ && IsWebAddress(outline.xmlUrl)) {
      loose_ = plan_.folders.size();
      plan_.folders.push_back({listName_});
    }
    loose_ ? TakeChannel(outline, plan_.folders[*loose_]) : LeaveOut(1);
  }

  void LeaveOut(int feeds) { plan_.leftOut += feeds; }

  void TakeChild(const OpmlOutline& outline, SubscriptionFolder& folder) {
    LeaveOut(outline.deeperFeeds);
    if (!outline.xmlUrl.empty()) return TakeChannel(outline, folder);
    if (outline.deeperFeeds == 0) LeaveOut(1);
  }

  void TakeChannel(const OpmlOutline& outline, SubscriptionFolder& folder) {
    // A list must not lead to the machine's own files, nor to a script.
    if (!IsWebAddress(outline.xmlUrl)) return LeaveOut(1);
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
  if (CountOutlines(outlines) > kMostOutlines) return std::nullopt;
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
