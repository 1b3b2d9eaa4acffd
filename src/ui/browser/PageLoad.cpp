#include "ui/browser/PageLoad.h"

#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

// A generated page has no scripts: whatever it links to, the user has clicked.
bool IsGivenByUser(const PageLoad& load, const Navigation& navigation, bool isUsers) {
  switch (navigation.cause) {
    case NavigationCause::Command:
      return isUsers;
    case NavigationCause::Server:
      return !load.given.isEmpty();
    case NavigationCause::Link:
      return load.hasGesture || IsGenerated(navigation.from);
    case NavigationCause::Page:
      return load.hasGesture;
  }
  return false;
}

// That a page has come again, in its own place, is not reported.
LoadPhase FirstPhase(const Navigation& navigation) {
  return navigation.to == navigation.from ? LoadPhase::Arrived : LoadPhase::Requested;
}

// What a page tries after a refusal must not wipe the refusal off the host's status text.
bool MayReport(const PageLoad& load, const QUrl& target) {
  return !PageNumber(target) && !load.isRefusalTold;
}

}  // namespace

bool IsUnderWay(const PageLoad& load) {
  return load.phase == LoadPhase::Requested || load.phase == LoadPhase::Arrived;
}

bool IsAbandonedBy(const PageLoad& load, const Navigation& navigation) {
  return IsUnderWay(load) && navigation.cause != NavigationCause::Server;
}

bool IsEndOf(const PageLoad& load, const QUrl& address) {
  const bool isOther = !load.abandoned.isEmpty() && address == load.abandoned;
  return IsUnderWay(load) && (address == load.target || !isOther);
}

PageLoad Begun(const PageLoad& load, const Navigation& navigation, bool isUsers) {
  PageLoad begun = load;
  const bool isGiven = IsGivenByUser(load, navigation, isUsers);
  ++begun.number;
  begun.phase = FirstPhase(navigation);
  begun.cause = navigation.cause;
  begun.target = navigation.to;
  begun.given = isGiven ? navigation.to : QUrl();
  if (navigation.cause == NavigationCause::Command) begun.isOrdered = false;
  if (navigation.cause != NavigationCause::Server) {
    begun.loginHosts.clear();
    begun.abandoned = IsUnderWay(load) ? load.target : QUrl();
  }
  if (isGiven) begun.isRefusalTold = false;
  begun.reportsStatus = MayReport(begun, navigation.to);
  return begun;
}

PageLoad FrameBegun(PageLoad load, const QUrl& target) {
  load.reportsStatus = MayReport(load, target);
  return load;
}

PageLoad Arrived(PageLoad load, const QUrl& address) {
  if (load.phase != LoadPhase::Requested || address != load.target) return load;
  load.phase = LoadPhase::Arrived;
  load.given.clear();
  load.hasGesture = false;
  return load;
}

PageLoad Ended(PageLoad load, bool isComplete) {
  const bool hasPage = isComplete && load.phase == LoadPhase::Arrived;
  load.phase = LoadPhase::Ended;
  load.reportsStatus = false;
  if (hasPage) load.given.clear();
  return load;
}

PageLoad Drawn(PageLoad load) {
  if (!IsUnderWay(load)) load.phase = LoadPhase::Drawn;
  return load;
}

PageLoad Touched(PageLoad load) {
  load.hasGesture = true;
  load.isRefusalTold = false;
  return load;
}

PageLoad Ordered(PageLoad load) {
  load.isOrdered = true;
  return load;
}

bool IsServersRedirect(const PageLoad& load, const QUrl& from, const QUrl& to) {
  const bool isPending = IsUnderWay(load) && load.cause != NavigationCause::Page;
  const bool hasNoRefresh = !IsGenerated(from) || from == load.noRefreshPage;
  return isPending && IsWebAddress(load.target) && IsWebAddress(to) && hasNoRefresh;
}

}  // namespace feedloom
