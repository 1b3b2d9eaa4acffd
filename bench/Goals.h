// Runs benchmarks and compares the results with goals.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace feedloom {

// The results of one run of all registered benchmarks.
class Measurements {
 public:
  // CPU seconds of one iteration in the fastest repetition, because other load can only make a
  // repetition slower. 0 when `benchmarkName` did not run, for example because of a filter.
  double Fastest(const std::string& benchmarkName) const;

  void Add(const std::string& benchmarkName, double seconds);

 private:
  std::map<std::string, double> fastest_;
};

// Runs the registered benchmarks with the library's usual command line and prints their medians.
// Unless the command line says otherwise each is repeated, in turn with the others, so that what
// is compared was measured under the same load.
Measurements RunAllBenchmarks(int argc, char** argv);

// Prints "label: measured (goal: at most limit), met" or "missed" and tells which; `unit` follows
// both numbers.
[[nodiscard]] bool MeetsAtMost(const std::string& label, double measured, double limit,
                               const std::string& unit);
[[nodiscard]] bool MeetsAtLeast(const std::string& label, double measured, double limit,
                                const std::string& unit);

}  // namespace feedloom
