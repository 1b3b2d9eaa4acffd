#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "store/FilterPosts.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

// Counts the stored posts that a rule meets, and applies a rule to them, on a background thread,
// whether the rule is on or off.
// The answers come on the owner's thread, which alone may call the functions; a later call, and the
// object's end, stop what is under way, and its answer never comes. nullopt is a failure.
class StoredPosts {
 public:
  StoredPosts(std::shared_ptr<Store> store, BackgroundJobs::Post toOwner)
      : store_(std::move(store)), jobs_(std::move(toOwner)) {}

  void Count(FilterRule rule, std::function<void(std::optional<int> count)> onAnswer);
  void Apply(FilterRule rule, std::function<void(std::optional<FilterSums> sums)> onAnswer);
  void StopAll() { jobs_.StopAll(); }

 private:
  template <typename Work, typename Answer>
  void Run(Work work, Answer onAnswer);

  const std::shared_ptr<Store> store_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
