#include "shell/SettingsStore.h"

#include <span>
#include <string>

#include "files/RegistryKeys.h"
#include "text/Text.h"

namespace feedloom {
namespace {

struct SettingField {
  const char* name;
  int Settings::*member;
};

// In the order in which new values stand in the registry file.
constexpr SettingField kSettingFields[] = {
    {kValueNewFeedMode, &Settings::newFeedMode},
    {kValueNewFeedDuration, &Settings::newFeedDuration},
    {kValueNewFeedMsgDuration, &Settings::newFeedMsgDuration},
    {kValueNewFeedMsgTransparency, &Settings::newFeedMsgTransparency},
    {kValuePreviewMode, &Settings::previewMode},
    {kValueFeedDeleteMode, &Settings::feedDeleteMode},
    {kValueFeedDeleteDate, &Settings::feedDeleteDate},
};

std::string TextName(const SettingField& field) { return std::string(field.name) + kTextSuffix; }

RegistryEntry NumberOf(const Settings& settings, const SettingField& field) {
  return {kModuleKey, field.name, static_cast<std::uint32_t>(settings.*field.member)};
}

RegistryEntry TextOf(const Settings& settings, const SettingField& field) {
  return {kModuleKey, TextName(field), std::to_string(settings.*field.member)};
}

}  // namespace

Settings WithModesAsFlags(Settings settings) {
  for (int Settings::*mode :
       {&Settings::previewMode, &Settings::newFeedMode, &Settings::feedDeleteMode}) {
    settings.*mode = settings.*mode != 0 ? 1 : 0;
  }
  return settings;
}

Settings LoadFrameSettings(const Registry& registry) {
  return WithModesAsFlags(LoadPanelSettings(registry));
}

Settings LoadPanelSettings(const Registry& registry) {
  Settings settings;
  for (const SettingField& field : kSettingFields) {
    const auto text = registry.ReadString(kModuleKey, TextName(field));
    settings.*field.member = ParseInt(text.value_or(""));
  }
  return settings;
}

bool SavePanelSettings(const Registry& registry, const Settings& settings) {
  const std::span<const SettingField> all(kSettingFields);
  const auto update = all.first(2);  // mode and interval: both numbers, then both texts
  std::vector<RegistryEntry> entries;
  for (const SettingField& field : update) entries.push_back(NumberOf(settings, field));
  for (const SettingField& field : update) entries.push_back(TextOf(settings, field));
  for (const SettingField& field : all.subspan(update.size())) {
    entries.push_back(NumberOf(settings, field));
    entries.push_back(TextOf(settings, field));
  }
  return registry.Write(entries);
}

}  // namespace feedloom
