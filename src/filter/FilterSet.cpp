#include "filter/FilterSet.h"

#include <re2/re2.h>

#include <algorithm>
#include <utility>

#include "xml/HtmlText.h"

namespace feedloom {
namespace {

// A quarter of it is the limit of the compiled expression, the rest holds its states.
constexpr std::int64_t kExpressionMemory = 512 << 10;

std::unique_ptr<const RE2> Compile(const FilterCondition& condition) {
  const bool isExpression = condition.test == FilterTest::Matches;
  RE2::Options options(RE2::Quiet);
  options.set_max_mem(kExpressionMemory);
  options.set_literal(!isExpression);
  options.set_case_sensitive(isExpression);
  return std::make_unique<const RE2>(condition.text, options);
}

std::optional<FilterFault> FaultOf(const FilterCondition& condition, const RE2& expression) {
  if (condition.text.empty()) return FilterFault{FilterFault::Kind::NoText};
  if (condition.text.size() > kLongestFilterText) return FilterFault{FilterFault::Kind::TooLong};
  if (!expression.ok()) return FilterFault{FilterFault::Kind::Invalid, expression.error()};
  return std::nullopt;
}

// A post whose text is made once, for the first condition that looks at it.
class PostTexts {
 public:
  explicit PostTexts(const FilteredPost& post) : post_(post) {}

  const std::string& Of(FilterField field) {
    switch (field) {
      case FilterField::Title:
        return post_.title;
      case FilterField::Author:
        return post_.authors;
      case FilterField::Link:
        return post_.link;
      case FilterField::Category:
        return post_.categories;
      case FilterField::Text:
        break;
    }
    if (!text_) {
      text_ = HtmlText(post_.html, kFilteredText);
      text_->resize(std::min(text_->size(), kFilteredText));
    }
    return *text_;
  }

 private:
  const FilteredPost& post_;
  std::optional<std::string> text_;
};

}  // namespace

struct FilterSet::ReadyRule {
  struct Condition {
    FilterField field;
    FilterTest test;
    std::unique_ptr<const RE2> expression;
  };

  FilterRule rule;
  std::vector<Condition> conditions = {};

  // False when a condition is faulty.
  bool Compile() {
    for (const FilterCondition& condition : rule.conditions) {
      auto expression = feedloom::Compile(condition);
      if (FaultOf(condition, *expression)) return false;
      conditions.push_back({condition.field, condition.test, std::move(expression)});
    }
    return true;
  }

  bool IsMetBy(const FilteredPost& post, PostTexts& texts) const {
    if (rule.place == FilterPlace::Folder && rule.placeName != post.folder) return false;
    if (rule.place == FilterPlace::Channel && rule.placeName != post.channel) return false;
    return std::ranges::all_of(conditions, [&](const Condition& condition) {
      return RE2::PartialMatch(texts.Of(condition.field), *condition.expression) !=
             (condition.test == FilterTest::HoldsNot);
    });
  }
};

std::optional<FilterFault> FaultOf(const FilterCondition& condition) {
  if (condition.text.size() > kLongestFilterText) return FilterFault{FilterFault::Kind::TooLong};
  return FaultOf(condition, *Compile(condition));
}

FilterSet::FilterSet(std::span<const FilterRule> rules) {
  for (const FilterRule& rule : rules) {
    if (!rule.isOn) continue;
    ReadyRule ready{rule};
    if (ready.Compile()) rules_.push_back(std::move(ready));
  }
}

FilterSet::~FilterSet() = default;
FilterSet::FilterSet(FilterSet&&) noexcept = default;

FilterDeeds FilterSet::DeedsFor(const FilteredPost& post) const {
  FilterDeeds deeds;
  PostTexts texts(post);
  for (const ReadyRule& ready : rules_) {
    if (!ready.IsMetBy(post, texts)) continue;
    const FilterRule& rule = ready.rule;
    deeds.isMet = true;
    deeds.marksRead |= rule.marksRead;
    deeds.deletes |= rule.deletes;
    if (rule.notice != FilterNotice::AsSet) deeds.notice = rule.notice;
    if (!rule.cabinet.empty() && !std::ranges::count(deeds.cabinets, rule.cabinet)) {
      deeds.cabinets.push_back(rule.cabinet);
    }
  }
  return deeds.deletes ? FilterDeeds{.isMet = true, .deletes = true} : deeds;
}

}  // namespace feedloom
