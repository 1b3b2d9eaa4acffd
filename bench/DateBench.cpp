// How many feed dates a second NormalizeFeedDate turns into their stored form, in zones without and
// with daylight saving.
#include <stdlib.h>
#include <time.h>

#include <array>
#include <string>

#include "bench/Goals.h"
#include "feed/FeedDate.h"

namespace {

constexpr std::array kDates = {
    "Tue, 10 Jun 2008 04:00:00 GMT", "Mon, 07 Jan 2008 13:05:59 +0900",
    "Sat, 1 Mar 2008 23:59:00 EST",  "Fri, 15 Aug 2008 09:30:00 -0700",
    "Thu, 06 Nov 2008 18:12:44 PST", "Wed, 31 Dec 2008 23:59:59 Z",
    "2008-06-10T04:00:00Z",          "2008-01-07T13:05:59+09:00",
    "2008-03-01T23:59:00-05:00",     "2008-08-15T09:30:00",
    "2008-11-06 18:12:44",           "2008-12-31T23:59:59.000Z",
};
constexpr const char* kZones[] = {"", "Asia/Seoul", "America/New_York"};

std::string NameOf(const std::string& zone) {
  return "NormalizeFeedDate, " + (zone.empty() ? "TZ not set" : "TZ=" + zone);
}

void UseZone(const std::string& zone) {
  zone.empty() ? unsetenv("TZ") : setenv("TZ", zone.c_str(), 1);
  tzset();
}

void NormalizeDates(benchmark::State& state, const std::string& zone) {
  UseZone(zone);
  std::string text;
  for (auto _ : state) {
    for (const char* date : kDates) {
      text = date;
      feedloom::NormalizeFeedDate(text);
      if (text.empty()) state.SkipWithError("a date was not read");
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kDates.size()));
}

}  // namespace

int main(int argc, char** argv) {
  for (const std::string zone : kZones) {
    benchmark::RegisterBenchmark(NameOf(zone).c_str(), NormalizeDates, zone);
  }
  const feedloom::Measurements measured = feedloom::RunAllBenchmarks(argc, argv);
  bool met = true;
  for (const std::string zone : kZones) {
    const double seconds = measured.Fastest(NameOf(zone));
    if (seconds == 0) continue;
    const double millions = static_cast<double>(kDates.size()) / seconds / 1e6;
    met = feedloom::MeetsAtLeast(NameOf(zone), millions, 1, " million a second") && met;
  }
  return met ? 0 : 1;
}
