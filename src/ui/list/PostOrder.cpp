#include "ui/list/PostOrder.h"

#include <QCollator>
#include <QThread>
#include <algorithm>
#include <future>
#include <iterator>
#include <numeric>
#include <unordered_map>

#include "ui/list/PostCells.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

using Texts = std::vector<std::string_view>;
using Keys = std::vector<QCollatorSortKey>;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

std::vector<int> NumbersUpTo(std::size_t count) {
  std::vector<int> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0);
  return numbers;
}

Keys KeysOf(std::span<const std::string_view> texts, CodePage codePage) {
  const QCollator collator;
  Keys keys;
  keys.reserve(texts.size());
  for (const std::string_view text : texts) {
    keys.push_back(collator.sortKey(ToLine(codePage, text)));
  }
  return keys;
}

// The keys are most of the work, several microseconds each, so that a long list is worth a few
// threads.
Keys KeysOfMany(std::span<const std::string_view> texts, CodePage codePage) {
  constexpr std::size_t kFewest = 5'000;
  const std::size_t shares = At(std::max(QThread::idealThreadCount(), 1));
  const std::size_t share = std::max(texts.size() / shares + 1, kFewest);
  std::vector<std::future<Keys>> parts;
  for (; texts.size() > share; texts = texts.subspan(share)) {
    parts.push_back(std::async(KeysOf, texts.first(share), codePage));
  }
  Keys last = KeysOf(texts, codePage);
  Keys keys;
  for (std::future<Keys>& part : parts) std::ranges::move(part.get(), std::back_inserter(keys));
  std::ranges::move(last, std::back_inserter(keys));
  return keys;
}

// A number for each text, higher for one that sorts behind, the same for those that sort alike.
std::vector<int> RanksOf(const Texts& texts, CodePage codePage) {
  std::unordered_map<std::string_view, int> numbers(texts.size());
  Texts different;
  std::vector<int> ranks;  // at first the text's number among the different ones
  ranks.reserve(texts.size());
  for (const std::string_view text : texts) {
    const auto [number, isNew] = numbers.try_emplace(text, static_cast<int>(different.size()));
    if (isNew) different.push_back(text);
    ranks.push_back(number->second);
  }
  const Keys keys = KeysOfMany(different, codePage);
  std::vector<int> sorted = NumbersUpTo(different.size());
  std::ranges::sort(sorted, [&](int a, int b) { return keys[At(a)] < keys[At(b)]; });
  std::vector<int> rankOf(different.size());
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    const bool isBehind = keys[At(sorted[i - 1])] < keys[At(sorted[i])];
    rankOf[At(sorted[i])] = rankOf[At(sorted[i - 1])] + (isBehind ? 1 : 0);
  }
  for (int& rank : ranks) rank = rankOf[At(rank)];
  return ranks;
}

// compare(a, b) is below, at or above 0.
template <typename Compare>
std::vector<int> Sorted(std::span<const PackedPost> posts, Qt::SortOrder order, Compare compare) {
  const bool isAscending = order == Qt::AscendingOrder;
  std::vector<int> rows = NumbersUpTo(posts.size());
  std::ranges::sort(rows, [&](int a, int b) {
    const int difference = isAscending ? compare(a, b) : compare(b, a);
    return difference != 0 ? difference < 0 : posts[At(a)].Place() < posts[At(b)].Place();
  });
  return rows;
}

std::vector<int> SortedByText(std::span<const PackedPost> posts, Qt::SortOrder order,
                              std::string_view (PackedPost::*text)() const, CodePage codePage) {
  Texts texts(posts.size());
  std::ranges::transform(posts, texts.begin(), text);
  const std::vector<int> ranks = RanksOf(texts, codePage);
  return Sorted(posts, order, [&](int a, int b) { return ranks[At(a)] - ranks[At(b)]; });
}

}  // namespace

std::vector<int> PostOrder(std::span<const PackedPost> posts, const Sorting& sorting,
                           CodePage codePage) {
  switch (sorting.column) {
    case kReadColumn:
      return Sorted(posts, sorting.order, [&](int a, int b) {
        return int{posts[At(a)].IsRead()} - int{posts[At(b)].IsRead()};
      });
    case kTitleColumn:
      return SortedByText(posts, sorting.order, &PackedPost::Title, codePage);
    case kDateColumn:
      return Sorted(posts, sorting.order, [&](int a, int b) {
        return posts[At(a)].Published().compare(posts[At(b)].Published());
      });
    case kOwnerColumn:
      return SortedByText(posts, sorting.order, &PackedPost::OwnerTitle, codePage);
    default:
      return Sorted(posts, Qt::AscendingOrder, [](int, int) { return 0; });
  }
}

}  // namespace feedloom
