#include "shell/SettingsStore.h"

#include <span>
#include <string>

#include "platform/Text.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

struct Field {
  const char* name;
  int Settings::*member;
};

constexpr Field kNewFeedMode{"NewFeedMode", &Settings::newFeedMode};
constexpr Field kNewFeedDuration{"NewFeedDuration", &Settings::newFeedDuration};
constexpr Field kNewFeedMsgDuration{"NewFeedMsgDuration", &Settings::newFeedMsgDuration};
constexpr Field kNewFeedMsgTransparency{"NewFeedMsgTransparency",
                                        &Settings::newFeedMsgTransparency};
constexpr Field kPreviewMode{"PreviewMode", &Settings::previewMode};
constexpr Field kFeedDeleteMode{kValueFeedDeleteMode, &Settings::feedDeleteMode};
constexpr Field kFeedDeleteDate{kValueFeedDeleteDate, &Settings::feedDeleteDate};

constexpr Field kFrameOrder[] = {kPreviewMode,           kNewFeedMode,    kNewFeedDuration,
                                 kFeedDeleteMode,        kFeedDeleteDate, kNewFeedMsgDuration,
                                 kNewFeedMsgTransparency};
constexpr Field kPanelOrder[] = {
    kNewFeedMode, kNewFeedDuration, kNewFeedMsgDuration, kNewFeedMsgTransparency,
    kPreviewMode, kFeedDeleteMode,  kFeedDeleteDate};

std::string TextName(const Field& field) { return std::string(field.name) + "Str"; }

Settings Load(const Registry& registry, std::span<const Field> fields) {
  Settings settings;
  for (const Field& field : fields) {
    const auto text = registry.ReadString(kModuleKey, TextName(field));
    settings.*field.member = ParseInt(text.value_or(""));
  }
  return settings;
}

RegistryEntry NumberOf(const Settings& settings, const Field& field) {
  return {kModuleKey, field.name, static_cast<std::uint32_t>(settings.*field.member)};
}

RegistryEntry TextOf(const Settings& settings, const Field& field) {
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
  return WithModesAsFlags(Load(registry, kFrameOrder));
}

Settings LoadPanelSettings(const Registry& registry) { return Load(registry, kPanelOrder); }

bool SavePanelSettings(const Registry& registry, const Settings& settings) {
  const std::span<const Field> all(kPanelOrder);
  const auto update = all.first(2);  // mode and interval: both numbers, then both texts
  std::vector<RegistryEntry> entries;
  for (const Field& field : update) entries.push_back(NumberOf(settings, field));
  for (const Field& field : update) entries.push_back(TextOf(settings, field));
  for (const Field& field : all.subspan(update.size())) {
    entries.push_back(NumberOf(settings, field));
    entries.push_back(TextOf(settings, field));
  }
  return registry.Write(entries);
}

}  // namespace feedloom
