#include "filter/FilterJson.h"

#include <fmt/format.h>

#include <array>
#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>

namespace feedloom {
namespace {

using Json = nlohmann::ordered_json;

// The names of enumerations, in their order.
constexpr std::array kFields{"title", "text", "author", "link", "category"};
constexpr std::array kTests{"contains", "lacks", "matches"};
constexpr std::array kPlaces{"all", "folder", "channel"};
constexpr std::array kNotices{"default", "always", "never"};

struct Fault : std::runtime_error {
  using runtime_error::runtime_error;
};

Json ToJson(const FilterCondition& condition) {
  return {{"field", kFields[static_cast<std::size_t>(condition.field)]},
          {"test", kTests[static_cast<std::size_t>(condition.test)]},
          {"text", condition.text}};
}

Json ToJson(const FilterRule& rule) {
  const FilterRule usual;
  Json json = Json::object();
  if (!rule.name.empty()) json["name"] = rule.name;
  if (!rule.isOn) json["on"] = false;
  if (rule.place != usual.place) {
    json[kPlaces[static_cast<std::size_t>(rule.place)]] = rule.placeName;
  }
  json["conditions"] = Json::array();
  for (const FilterCondition& condition : rule.conditions) {
    json["conditions"].push_back(ToJson(condition));
  }
  if (rule.marksRead) json["markRead"] = true;
  if (rule.deletes) json["delete"] = true;
  if (!rule.cabinet.empty()) json["copyTo"] = rule.cabinet;
  if (rule.notice != usual.notice) {
    json["announce"] = kNotices[static_cast<std::size_t>(rule.notice)];
  }
  return json;
}

template <typename Value>
Value Get(const Json& json, const std::string& key) {
  try {
    return json.get<Value>();
  } catch (const Json::exception&) {
    throw Fault(fmt::format("\"{}\" has a value of another kind", key));
  }
}

template <typename Enumeration>
Enumeration Get(const Json& json, const std::string& key, std::span<const char* const> names) {
  const auto text = Get<std::string>(json, key);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (text == names[i]) return static_cast<Enumeration>(i);
  }
  throw Fault(fmt::format("\"{}\" cannot be \"{}\"", key, text));
}

void CheckIsObject(const Json& json, const char* what) {
  if (!json.is_object()) throw Fault(fmt::format("a {} must be an object", what));
}

FilterCondition ToCondition(const Json& json) {
  CheckIsObject(json, "condition");
  FilterCondition condition;
  for (const auto& [key, value] : json.items()) {
    if (key == "field") {
      condition.field = Get<FilterField>(value, key, kFields);
    } else if (key == "test") {
      condition.test = Get<FilterTest>(value, key, kTests);
    } else if (key == "text") {
      condition.text = Get<std::string>(value, key);
    } else {
      throw Fault(fmt::format("a condition has no \"{}\"", key));
    }
  }
  return condition;
}

std::vector<FilterCondition> ToConditions(const Json& json) {
  if (!json.is_array()) throw Fault("\"conditions\" must be an array");
  std::vector<FilterCondition> conditions;
  for (const Json& condition : json) conditions.push_back(ToCondition(condition));
  return conditions;
}

void SetPlace(FilterRule& rule, FilterPlace place, std::string name) {
  if (rule.place != FilterPlace::All) throw Fault("a filter has one \"folder\" or \"channel\"");
  rule.place = place;
  rule.placeName = std::move(name);
}

FilterRule ToRule(const Json& json) {
  CheckIsObject(json, "filter");
  FilterRule rule;
  for (const auto& [key, value] : json.items()) {
    if (key == "name") {
      rule.name = Get<std::string>(value, key);
    } else if (key == "on") {
      rule.isOn = Get<bool>(value, key);
    } else if (key == "folder") {
      SetPlace(rule, FilterPlace::Folder, Get<std::string>(value, key));
    } else if (key == "channel") {
      SetPlace(rule, FilterPlace::Channel, Get<std::string>(value, key));
    } else if (key == "conditions") {
      rule.conditions = ToConditions(value);
    } else if (key == "markRead") {
      rule.marksRead = Get<bool>(value, key);
    } else if (key == "delete") {
      rule.deletes = Get<bool>(value, key);
    } else if (key == "copyTo") {
      rule.cabinet = Get<std::string>(value, key);
    } else if (key == "announce") {
      rule.notice = Get<FilterNotice>(value, key, kNotices);
    } else {
      throw Fault(fmt::format("a filter has no \"{}\"", key));
    }
  }
  return rule;
}

}  // namespace

std::string FilterToJson(const FilterRule& rule) {
  return ToJson(rule).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string FiltersToJson(const std::vector<FilterRule>& rules) {
  Json json = Json::array();
  for (const FilterRule& rule : rules) json.push_back(ToJson(rule));
  return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

ReadFilters FiltersFromJson(std::string_view text) {
  ReadFilters read;
  try {
    const Json json = Json::parse(text);
    if (!json.is_array()) throw Fault("filters must be an array");
    for (const Json& rule : json) read.rules.push_back(ToRule(rule));
  } catch (const Fault& fault) {
    return {.error = fmt::format("filter {}: {}", read.rules.size() + 1, fault.what())};
  } catch (const Json::exception& fault) {
    return {.error = fault.what()};
  }
  return read;
}

}  // namespace feedloom
