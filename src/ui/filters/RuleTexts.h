// What the filters dialog says of a rule. Pure but for the host's texts. Interface thread.
#pragma once

#include <QStringList>
#include <optional>
#include <span>

#include "filter/FilterRule.h"

namespace feedloom {

class Skin;

// The texts of fields, tests and notices, in the order of their enumerations.
QStringList FieldTexts(const Skin& skin);
QStringList TestTexts(const Skin& skin);
QStringList NoticeTexts(const Skin& skin);

// The rule's name; for one without a name its first condition, or that it meets all posts.
QString RuleTitle(const Skin& skin, const FilterRule& rule);

// Why a condition, and so its rule, does nothing; empty when it is right.
QString FaultText(const Skin& skin, const FilterCondition& condition);

// What the user should know before the rule is used: that it deletes all posts, or does nothing;
// empty when there is nothing to say.
QString Caution(const Skin& skin, const FilterRule& rule);

// Whether a condition is faulty, the rule deletes every post of its place, and it does anything to
// posts that are stored already.
bool IsFaulty(const FilterRule& rule);
bool DeletesAll(const FilterRule& rule);
bool ChangesPosts(const FilterRule& rule);

// The first rule that is on and faulty; nullopt when there is none.
std::optional<int> FirstFaulty(std::span<const FilterRule> rules);

}  // namespace feedloom
