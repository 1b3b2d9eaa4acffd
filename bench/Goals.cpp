#include "bench/Goals.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>

namespace feedloom {
namespace {

// Prints the medians only and keeps the fastest of the single repetitions.
class MedianReporter : public benchmark::ConsoleReporter {
 public:
  explicit MedianReporter(Measurements& measurements)
      : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_Defaults : OO_Tabular),
        measurements_(measurements) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<Run> shown;
    std::ranges::copy_if(runs, std::back_inserter(shown),
                         [](const Run& run) { return run.aggregate_name == "median"; });
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      if (run.error_occurred) shown.push_back(run);
      if (run.error_occurred || run.iterations == 0) continue;
      measurements_.Add(run.run_name.function_name,
                        run.cpu_accumulated_time / static_cast<double>(run.iterations));
    }
    ConsoleReporter::ReportRuns(shown);
  }

 private:
  Measurements& measurements_;
};

bool Print(const std::string& label, double measured, const char* bound, double limit,
           const std::string& unit, bool met) {
  fmt::print("{}: {:.2f}{} (goal: {} {:.2f}{}), {}\n", label, measured, unit, bound, limit, unit,
             met ? "met" : "missed");
  return met;
}

}  // namespace

double Measurements::Fastest(const std::string& benchmarkName) const {
  const auto found = fastest_.find(benchmarkName);
  return found == fastest_.end() ? 0 : found->second;
}

void Measurements::Add(const std::string& benchmarkName, double seconds) {
  const auto [entry, isNew] = fastest_.try_emplace(benchmarkName, seconds);
  if (!isNew) entry->second = std::min(entry->second, seconds);
}

Measurements RunAllBenchmarks(int argc, char** argv) {
  char repetitions[] = "--benchmark_repetitions=9";
  char interleaved[] = "--benchmark_enable_random_interleaving=true";
  std::vector<char*> arguments(argv, argv + argc);
  arguments.insert(arguments.begin() + 1, {repetitions, interleaved});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  Measurements measurements;
  MedianReporter reporter(measurements);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return measurements;
}

bool MeetsAtMost(const std::string& label, double measured, double limit, const std::string& unit) {
  return Print(label, measured, "at most", limit, unit, measured <= limit);
}

bool MeetsAtLeast(const std::string& label, double measured, double limit,
                  const std::string& unit) {
  return Print(label, measured, "at least", limit, unit, measured >= limit);
}

}  // namespace feedloom
