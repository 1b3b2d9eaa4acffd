#include "ui/list/PostOrder.h"

#include <QCollator>
#include <QThread>
#include <algorithm>
#include <future>
#include <iterator>
#include <numeric>
#include <unordered_map>

#include "look/QtText.h"
#include "ui/list/PostCells.h"

namespace feedloom {
namespace {

using Texts = std::vector<std::string_view>;
using Keys = std::vector<QCollatorSortKey>;

std::size_t At(int index) { return static_cast<std::size_t>(index); }

std::vector<int> Indices(std::size_t count) {
  std::vector<int> numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0);
  return numbers;
}

Keys SortKeys(std::span<const std::string_view> texts, CodePage codePage) {
  const QCollator collator;
  Keys keys;
  keys.reserve(texts.size());
  for (const std::string_view text : texts) {
    keys.push_back(collator.sortKey(ToLine(codePage, text)));
  }
  return keys;
}

// A collation key takes several microseconds, which is most of the time of a sort. So the keys of a
// long list are made by several threads. A share that the system refuses a thread, std::async
// leaves to this one.
Keys SortKeysParallel(std::span<const std::string_view> texts, CodePage codePage) {
  constexpr std::size_t kMinPerThread = 5'000;
  const std::size_t shares = At(std::max(QThread::idealThreadCount(), 1));
  const std::size_t share = std::max(texts.size() / shares + 1, kMinPerThread);
  std::vector<std::future<Keys>> parts;
  for (; texts.size() > share; texts = texts.subspan(share)) {
    parts.push_back(std::async(SortKeys, texts.first(share), codePage));
  }
  Keys last = SortKeys(texts, codePage);
  Keys keys;
  for (std::future<Keys>& part : parts) std::ranges::move(part.get(), std::back_inserter(keys));
  std::ranges::move(last, std::back_inserter(keys));
  return keys;
}

// A rank for each text: higher for a text that sorts later, equal for texts that compare equal.
std::vector<int> Ranks(const Texts& texts, CodePage codePage) {
  std::unordered_map<std::string_view, int> numbers(texts.size());
  Texts different;
  std::vector<int> ranks;  // at first each text's index in `different`
  ranks.reserve(texts.size());
  for (const std::string_view text : texts) {
    const auto [number, isNew] = numbers.try_emplace(text, static_cast<int>(different.size()));
    if (isNew) different.push_back(text);
    ranks.push_back(number->second);
  }
  const Keys keys = SortKeysParallel(different, codePage);
  std::vector<int> sorted = Indices(different.size());
  std::ranges::sort(sorted, [&](int a, int b) { return keys[At(a)] < keys[At(b)]; });
  std::vector<int> rankOf(different.size());
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    const bool isBehind = keys[At(sorted[i - 1])] < keys[At(sorted[i])];
    rankOf[At(sorted[i])] = rankOf[At(sorted[i - 1])] + (isBehind ? 1 : 0);
  }
  for (int& rank : ranks) rank = rankOf[At(rank)];
  return ranks;
}

// compare(a, b) returns a number below, equal to or above 0.
template <typename Compare>
std::vector<int> SortedIndices(std::span<const PackedPost> posts, Qt::SortOrder order,
                               Compare compare) {
  const bool isAscending = order == Qt::AscendingOrder;
  std::vector<int> rows = Indices(posts.size());
  std::ranges::sort(rows, [&](int a, int b) {
    const int difference = isAscending ? compare(a, b) : compare(b, a);
    return difference != 0 ? difference < 0 : posts[At(a)].StoreIndex() < posts[At(b)].StoreIndex();
  });
  return rows;
}

std::vector<int> SortedByText(std::span<const PackedPost> posts, Qt::SortOrder order,
                              std::string_view (PackedPost::*text)() const, CodePage codePage) {
  Texts texts(posts.size());
  std::ranges::transform(posts, texts.begin(), text);
  const std::vector<int> ranks = Ranks(texts, codePage);
  return SortedIndices(posts, order, [&](int a, int b) { return ranks[At(a)] - ranks[At(b)]; });
}

}  // namespace

std::vector<int> PostOrder(std::span<const PackedPost> posts, const Sorting& sorting,
                           CodePage codePage) {
  switch (sorting.column) {
    case kReadColumn:
      return SortedIndices(posts, sorting.order, [&](int a, int b) {
        return int{posts[At(a)].IsRead()} - int{posts[At(b)].IsRead()};
      });
    case kTitleColumn:
      return SortedByText(posts, sorting.order, &PackedPost::Title, codePage);
    case kDateColumn:
      return SortedIndices(posts, sorting.order, [&](int a, int b) {
        return posts[At(a)].Published().compare(posts[At(b)].Published());
      });
    case kOwnerColumn:
      return SortedByText(posts, sorting.order, &PackedPost::OwnerTitle, codePage);
    default:
      return SortedIndices(posts, Qt::AscendingOrder, [](int, int) { return 0; });
  }
}

}  // namespace feedloom
