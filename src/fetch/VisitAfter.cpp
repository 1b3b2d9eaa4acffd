#include "fetch/VisitAfter.h"

#include <algorithm>
#include <utility>

namespace feedloom {
namespace {

using Now = std::chrono::system_clock::time_point;

constexpr std::chrono::hours kLongestWait{24};  // the longest "Retry-After" that is obeyed

std::chrono::sys_seconds Seconds(Now time) {
  return std::chrono::floor<std::chrono::seconds>(time);
}

FeedVisit AfterAnswer(FeedVisit last, const FetchOutcome& outcome, int missing) {
  last.failingSince = {};  // the feed is well, whatever became of its posts
  last.notBefore = {};
  last.movedTo = outcome.movedTo;
  if (!outcome.isNew) return last;
  last.period = outcome.period;
  last.validators = missing == 0 ? outcome.validators : Validators();
  return last;
}

}  // namespace

FeedVisit VisitAfter(FeedVisit last, const FetchOutcome& outcome, int missing, Now now) {
  if (outcome.fault.kind == FeedFaultKind::None) {
    FeedVisit visit = AfterAnswer(std::move(last), outcome, missing);
    visit.tried = Seconds(now);
    visit.fault = {};
    if (missing > 0) visit.fault = {.kind = FeedFaultKind::NotStored, .number = missing};
    if (missing == 0) visit.succeeded = visit.tried;
    return visit;
  }
  FeedVisit visit = VisitAfterFault(std::move(last), outcome.fault, now);
  const auto wait = std::min<std::chrono::seconds>(outcome.retryAfter, kLongestWait);
  if (wait.count() > 0) visit.notBefore = Seconds(now + wait);
  return visit;
}

FeedVisit VisitAfterFault(FeedVisit last, FeedFault fault, Now now) {
  last.fault = std::move(fault);
  last.tried = Seconds(now);
  if (last.failingSince == std::chrono::sys_seconds()) last.failingSince = last.tried;
  return last;
}

// A wait of more than kLongestWait means that the clock was set back; it is ignored.
bool MustWait(const FeedVisit& last, Now now) {
  return now < last.notBefore && last.notBefore <= now + kLongestWait;
}

}  // namespace feedloom
