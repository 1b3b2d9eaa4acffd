// How the benchmarks are run and held against their goals.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace feedloom {

// What one run of all registered benchmarks measured.
class Measurements {
 public:
  // CPU seconds of one iteration in the fastest repetition: whatever else the machine does can only
  // add to a time. 0 when `benchmarkName` did not run, as when a filter left it out.
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
