#include "ui/browser/GeneratedPages.h"

#include <utility>

namespace feedloom {
namespace {

// The engine's history has 50 entries at most, but pages may be left before they enter it. The
// bytes suffice for a few very large posts.
constexpr std::size_t kMaxPages = 1000;
constexpr qsizetype kMaxBytes = 64 << 20;

constexpr qsizetype kLarge = 200'000;  // bytes

}  // namespace

bool IsLarge(const GeneratedPage& page) { return page.html.size() > kLarge; }

int GeneratedPages::Add(GeneratedPage page) {
  bytes_ += page.html.size();
  pages_.insert(++lastNumber_, std::move(page));
  order_.push_back(lastNumber_);
  while (order_.size() > 1 && (order_.size() > kMaxPages || bytes_ > kMaxBytes)) DropOldest();
  return lastNumber_;
}

std::optional<GeneratedPage> GeneratedPages::Find(int number) const {
  const auto page = pages_.find(number);
  if (page == pages_.end()) return {};
  return *page;
}

void GeneratedPages::DropOldest() {
  bytes_ -= pages_.take(order_.front()).html.size();
  order_.pop_front();
}

}  // namespace feedloom
