#include "ui/filters/RuleTexts.h"

#include <algorithm>

#include "filter/FilterSet.h"
#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Keys.h"

namespace feedloom {
QStringList FieldTexts(const Skin& skin) { return SkinText(skin, kTextFilterFields).split('|'); }
QStringList TestTexts(const Skin& skin) { return SkinText(skin, kTextFilterTests).split('|'); }
QStringList NoticeTexts(const Skin& skin) { return SkinText(skin, kTextFilterNotices).split('|'); }

QString RuleTitle(const Skin& skin, const FilterRule& rule) {
  if (!rule.name.empty()) return ToLine(CodePage::Utf8(), rule.name);
  if (rule.conditions.empty()) return SkinText(skin, kTextFilterAllPosts);
  const FilterCondition& first = rule.conditions.front();
  return FieldTexts(skin).value(static_cast<int>(first.field)) + ": " +
         ToLine(CodePage::Utf8(), first.text);
}

QString FaultText(const Skin& skin, const FilterCondition& condition) {
  const auto fault = FaultOf(condition);
  if (!fault) return {};
  switch (fault->kind) {
    case FilterFault::Kind::NoText:
      return SkinText(skin, kTextFilterNoText);
    case FilterFault::Kind::TooLong:
      return SkinText(skin, kTextFilterTooLong);
    case FilterFault::Kind::Invalid:
      break;
  }
  return SkinText(skin, kTextFilterInvalid).replace("%s", QString::fromStdString(fault->reason));
}

bool IsFaulty(const FilterRule& rule) {
  return std::ranges::any_of(rule.conditions, [](const FilterCondition& condition) {
    return FaultOf(condition).has_value();
  });
}

bool ChangesPosts(const FilterRule& rule) {
  return rule.marksRead || rule.deletes || !rule.cabinet.empty();
}

bool DeletesAll(const FilterRule& rule) { return rule.deletes && rule.conditions.empty(); }

QString Caution(const Skin& skin, const FilterRule& rule) {
  if (DeletesAll(rule)) return SkinText(skin, kTextFilterDeletesAll);
  const bool hasDeed = ChangesPosts(rule) || rule.notice != FilterNotice::AsSet;
  return hasDeed ? QString() : SkinText(skin, kTextFilterNoDeed);
}

std::optional<int> FirstFaulty(std::span<const FilterRule> rules) {
  const auto faulty = std::ranges::find_if(
      rules, [](const FilterRule& rule) { return rule.isOn && IsFaulty(rule); });
  if (faulty == rules.end()) return std::nullopt;
  return static_cast<int>(faulty - rules.begin());
}

}  // namespace feedloom
