#include "exchange/ImportPlan.h"

#include <filesystem>

#include "feed/WebAddress.h"
#include "net/Url.h"
#include "text/Text.h"

namespace feedloom {
namespace {

// Folders within folders repeat the names of those around them: without a limit a short list could
// ask for names without end.
constexpr std::size_t kLongestJoinedName = 200;  // bytes

std::string NameOf(const OpmlOutline& outline, const std::string& otherwise) {
  for (const std::string& name : {outline.text, outline.title}) {
    if (const auto trimmed = Trim(name); !trimmed.empty()) return std::string(trimmed);
  }
  return otherwise;
}

std::string JoinedName(const std::string& outer, const std::string& inner) {
  const bool isShort = outer.size() + inner.size() <= kLongestJoinedName;
  return isShort ? outer + " / " + inner : inner;
}

// Builds the plan from the top-level outlines, one after the other.
class Planner {
 public:
  explicit Planner(const std::string& listName) : listName_(listName) {}

  void Add(const OpmlOutline& outline) {
    const bool isLone = outline.children.empty() && !FeedAddress(outline).empty();
    isLone ? AddLoneFeed(outline) : AddFolder(outline, NameOf(outline, listName_));
  }

  ImportPlan Result() && { return std::move(plan_); }

 private:
  // Adds a top-level feed to the folder for such feeds, which the first valid one creates.
  void AddLoneFeed(const OpmlOutline& outline) {
    if (!IsWebAddress(FeedAddress(outline))) return LeaveOut(outline, LeftOutReason::NotOfTheWeb);
    if (!loneFeedsFolder_) {
      loneFeedsFolder_ = plan_.folders.size();
      plan_.folders.push_back({listName_});
    }
    AddChannel(outline, plan_.folders[*loneFeedsFolder_]);
  }

  void AddFolder(const OpmlOutline& outline, const std::string& name) {
    SubscriptionFolder folder{name};
    std::vector<const OpmlOutline*> inner;
    if (!FeedAddress(outline).empty()) AddChannel(outline, folder);
    for (const OpmlOutline& child : outline.children) {
      child.children.empty() ? AddChild(child, folder) : inner.push_back(&child);
    }
    if (inner.empty() || !folder.channels.empty()) plan_.folders.push_back(std::move(folder));
    for (const OpmlOutline* const child : inner) {
      AddFolder(*child, JoinedName(name, NameOf(*child, listName_)));
    }
  }

  void AddChild(const OpmlOutline& outline, SubscriptionFolder& folder) {
    for (const OpmlOutline& deeper : outline.deeper) Name(deeper, LeftOutReason::TooDeep);
    plan_.leftOut += outline.deeperFeeds;
    if (!FeedAddress(outline).empty()) return AddChannel(outline, folder);
    if (outline.deeperFeeds == 0) LeaveOut(outline, LeftOutReason::NoAddress);
  }

  void AddChannel(const OpmlOutline& outline, SubscriptionFolder& folder) {
    const std::string& address = FeedAddress(outline);
    // A list from somewhere else must not make the program read local files or run scripts.
    if (!IsWebAddress(address)) return LeaveOut(outline, LeftOutReason::NotOfTheWeb);
    folder.channels.push_back({.title = NameOf(outline, UrlWithoutLogin(address)),
                               .xmlLink = address,
                               .htmlLink = std::string(Trim(outline.htmlUrl))});
  }

  void LeaveOut(const OpmlOutline& outline, LeftOutReason reason) {
    ++plan_.leftOut;
    Name(outline, reason);
  }

  void Name(const OpmlOutline& outline, LeftOutReason reason) {
    if (plan_.named.size() == kMostNamed) return;
    plan_.named.push_back({NameOf(outline, UrlWithoutLogin(FeedAddress(outline))), reason});
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
