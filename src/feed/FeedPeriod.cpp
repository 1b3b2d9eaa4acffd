#include "feed/FeedPeriod.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "text/Text.h"

namespace feedloom {
namespace {

using std::chrono::seconds;

struct Unit {
  std::string_view name;
  seconds length;
};
constexpr Unit kUnits[] = {{"hourly", std::chrono::hours(1)},
                           {"daily", std::chrono::days(1)},
                           {"weekly", std::chrono::weeks(1)},
                           {"monthly", std::chrono::months(1)},
                           {"yearly", std::chrono::years(1)}};

// The text of the first element of that name directly below `element`; empty without one.
std::string TextBelow(const XmlElement& element, std::string_view name) {
  const auto found = element.Children(name);
  return found.empty() ? "" : found.front().Text();
}

// Without one of the two elements the other is "daily", or once.
seconds SyndicationPeriod(const XmlElement& channel) {
  const std::string period = TextBelow(channel, "sy:updatePeriod");
  const std::string frequency = TextBelow(channel, "sy:updateFrequency");
  if (period.empty() && frequency.empty()) return {};
  const auto* const unit = std::ranges::find(kUnits, period.empty() ? "daily" : period,
                                             [](const Unit& known) { return known.name; });
  if (unit == std::end(kUnits)) return {};
  return unit->length / (frequency.empty() ? 1 : std::max(1, ParseInt(frequency)));
}

}  // namespace

seconds WishedPeriod(const XmlElement& root) {
  const auto channels = root.Children("channel");
  const XmlElement channel = channels.empty() ? root : channels.front();
  const seconds ttl = std::chrono::minutes(ParseInt(TextBelow(channel, "ttl")));
  return std::clamp(std::max(ttl, SyndicationPeriod(channel)), seconds(0), kLongestPeriod);
}

}  // namespace feedloom
