// How long it takes to cut an answer of the web directory into the rows of a page.
#include <fmt/core.h>

#include <string>

#include "bench/Goals.h"
#include "exchange/FeedDirectory.h"

namespace {

using feedloom::kDirectoryPageSize;

constexpr const char* kName = "ParseDirectoryAnswer, 50 records";

// Records of about 600 bytes with typical descriptions.
std::string OrdinaryAnswer() {
  std::string description;
  for (int i = 0; i < 8; ++i) {
    description += "Notes about [news] &amp; reading, &lt;b&gt;every day&lt;/b&gt; \xB0\xA1. ";
  }
  std::string answer = "[TO]1273";
  for (int i = 1; i <= kDirectoryPageSize; ++i) {
    answer += fmt::format(
        "[HS]host{0}.example[IT]A weblog &quot;number&quot; "
        "{0}[IU]http://host{0}.example/post?id={0}"
        "&amp;view=1[RT]Weblog {0}[RU]http://host{0}.example/rss.xml[DT]20080501093045[ID]{1}[PO]0",
        i, description);
  }
  return answer + "[QK]";
}

void CutAnswer(benchmark::State& state) {
  const std::string answer = OrdinaryAnswer();
  for (auto _ : state) {
    const auto rows = feedloom::ParseDirectoryAnswer(answer).rows;
    if (rows.size() != kDirectoryPageSize) state.SkipWithError("records were lost");
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::RegisterBenchmark(kName, CutAnswer);
  const double seconds = feedloom::RunAllBenchmarks(argc, argv).Fastest(kName);
  return seconds == 0 || feedloom::MeetsAtMost(kName, seconds * 1e3, 1, " ms") ? 0 : 1;
}
