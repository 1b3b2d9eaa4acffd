// Which posts meet which rules, and what is done with them.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "filter/FilterRule.h"

namespace feedloom {

// The longest text of a condition, in bytes, and as much of a post's text as is looked at.
inline constexpr std::size_t kLongestFilterText = 1000;
inline constexpr std::size_t kFilteredText = 128u << 10;

// Why a condition is faulty; a rule with such a condition does nothing.
struct FilterFault {
  enum class Kind { NoText, TooLong, Invalid };
  Kind kind = Kind::NoText;
  std::string reason = {};  // of Invalid, in English
};

// nullopt for a condition that is right. Pure; any thread.
std::optional<FilterFault> FaultOf(const FilterCondition& condition);

// What the rules look at of a post; all texts are UTF-8.
struct FilteredPost {
  std::string folder = {};   // its title
  std::string channel = {};  // the feed's address
  std::string title = {};
  std::string html = {};
  std::string link = {};
  std::string authors = {};
  std::string categories = {};
};

struct FilterDeeds {
  bool operator==(const FilterDeeds&) const = default;

  bool isMet = false;  // by any rule
  bool marksRead = false;
  bool deletes = false;
  std::vector<std::string> cabinets = {};  // titles, each once
  FilterNotice notice = FilterNotice::AsSet;
};

// Rules that are ready to be applied. An object may be used by several threads.
class FilterSet {
 public:
  // Rules that are off or faulty are left out. Takes some time for each expression.
  explicit FilterSet(std::span<const FilterRule> rules);
  ~FilterSet();
  FilterSet(FilterSet&&) noexcept;

  bool IsEmpty() const { return rules_.empty(); }

  // All rules that the post meets act, in their order. Of several notices the last one holds.
  // Deletion leaves nothing else to be done. Takes a time that grows with the post's size alone.
  FilterDeeds DeedsFor(const FilteredPost& post) const;

 private:
  struct ReadyRule;

  std::vector<ReadyRule> rules_;
};

}  // namespace feedloom
