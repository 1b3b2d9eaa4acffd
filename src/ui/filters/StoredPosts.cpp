#include "ui/filters/StoredPosts.h"

#include <utility>

namespace feedloom {

template <typename Work, typename Answer>
void StoredPosts::Run(Work work, Answer onAnswer) {
  jobs_.StopAll();
  jobs_.Start(
      [store = store_, work = std::move(work), onAnswer](const auto& stop, const auto& tell) {
        if (stop.stop_requested()) return;
        tell([onAnswer, answer = work(*store, stop)] { onAnswer(answer); });
      },
      [onAnswer] { onAnswer(std::nullopt); });
}

void StoredPosts::Count(FilterRule rule, std::function<void(std::optional<int> count)> onAnswer) {
  Run([rule = std::move(rule)](
          Store& store, const std::stop_token& stop) { return CountFiltered(store, rule, stop); },
      std::move(onAnswer));
}

void StoredPosts::Apply(FilterRule rule,
                        std::function<void(std::optional<FilterSums> sums)> onAnswer) {
  rule.isOn = true;
  Run(
      [rule = std::move(rule)](Store& store, const std::stop_token& stop) {
        return ApplyFilters(store, {&rule, 1}, stop);
      },
      std::move(onAnswer));
}

}  // namespace feedloom
