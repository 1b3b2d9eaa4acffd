// What the project ships for each name that the module asks the host for.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "kit/ShippedSkin.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "skin/KeyTable.h"
#include "skin/Keys.h"
#include "skin/Labels.h"

namespace feedloom {
namespace {

using Keys = std::set<std::string>;
using Section = std::map<std::string, std::string>;

// A shipped file's values, by section and key; each stands there once.
std::map<std::string, Section> SectionsOf(const char* file) {
  std::ifstream lines(JoinPath(ShippedShareDir(), file));
  std::map<std::string, Section> sections;
  std::string section;
  for (std::string line; std::getline(lines, line);) {
    const auto equals = line.find('=');
    if (line.starts_with('[')) {
      section = line.substr(1, line.find(']') - 1);
    } else if (!line.starts_with(';') && equals != std::string::npos) {
      const bool isNew =
          sections[section].emplace(line.substr(0, equals), line.substr(equals + 1)).second;
      EXPECT_TRUE(isNew) << "twice: " << line;
    }
  }
  return sections;
}

Keys KeysOf(const Section& section) {
  Keys keys;
  for (const auto& [key, value] : section) keys.insert(key);
  return keys;
}

// The same in all languages.
constexpr std::array kAddresses = {kTextUrlScheme, kTextDirectoryService};

Keys KnownTexts() { return {TextKeys().begin(), TextKeys().end()}; }

std::size_t CountOf(std::string_view text, std::string_view place) {
  std::size_t count = 0;
  for (auto at = text.find(place); at != text.npos; at = text.find(place, at + 1)) ++count;
  return count;
}

bool IsFile(const std::string& path) { return std::filesystem::is_regular_file(path); }

bool IsNumber(std::string_view value) {
  return !value.empty() && std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
}

bool IsArea(const SkinRect& rect) { return rect.left < rect.right && rect.top < rect.bottom; }

bool IsFont(const std::string& value) {
  const auto comma = value.find(',');
  return comma != std::string::npos && comma > 0 && IsNumber(Trim(value.substr(comma + 1)));
}

bool IsSound(const Skin& skin, const SkinKey& entry) {
  const std::string value = skin.GetSkinValue(entry.section, entry.key);
  const std::string path = skin.GetImagePath(entry.section, entry.key);
  switch (entry.kind) {
    case SkinValueKind::Number:
      return IsNumber(value) && ParseInt(value) > 0;
    case SkinValueKind::Rect:
      return IsArea(ParseSkinRect(value));
    case SkinValueKind::Font:
      return IsFont(value);
    case SkinValueKind::ImageWithoutF:
      return IsFile(path + "f");
    case SkinValueKind::File:
    case SkinValueKind::Image:
    case SkinValueKind::Button:
      break;
  }
  return !value.empty() && IsFile(path);
}

TEST(KeysTest, EachTextIsThereInBothLanguagesAndNoOther) {
  auto sections = SectionsOf("string.ini");
  Keys known = KnownTexts();
  EXPECT_EQ(KeysOf(sections["FEEDLOOM"]), known);
  for (const char* key : kAddresses) known.erase(key);
  for (const Label& label : Labels()) known.insert(label.key);  // Korean is built in
  EXPECT_EQ(KeysOf(sections["FEEDLOOM.ENG"]), known);
}

TEST(KeysTest, LabelsAreTheHostsOrElseTheModulesOwn) {
  const ShippedSkin korean("KOR");
  const ShippedSkin english("ENG");
  const CodePage codePage = CodePage::Korean();
  for (const Label& label : Labels()) {
    const std::string builtIn = GetLabel(korean.Get(), label);
    EXPECT_EQ(codePage.ToUtf8(builtIn), label.builtIn);
    EXPECT_NE(GetLabel(english.Get(), label), builtIn);
  }
  EXPECT_EQ(GetLabel(english.Get(), kLabelSearchResult), "Posts found: %d");
}

TEST(KeysTest, NoTextIsEmptyOrHoldsWhatTheKoreanCodePageLacks) {
  const CodePage korean = CodePage::Korean();
  for (const auto& [name, section] : SectionsOf("string.ini")) {
    for (const auto& [key, text] : section) {
      EXPECT_NE(text, "") << name << " " << key;
      EXPECT_EQ(korean.ToUtf8(korean.FromUtf8(text)), text) << name << " " << key;
    }
  }
}

TEST(KeysTest, EnglishIsNotKoreanAndBothHoldTheSamePlaces) {
  const ShippedSkin korean("KOR");
  const ShippedSkin english("ENG");
  for (const char* key : TextKeys()) {
    const std::string k = korean.Get().GetText(kSectionTexts, key);
    const std::string e = english.Get().GetText(kSectionTexts, key);
    const bool isAddress = std::ranges::find(kAddresses, std::string_view(key)) != kAddresses.end();
    EXPECT_EQ(k == e, isAddress) << key;
    for (const char* place : {"%s", "%d"}) EXPECT_EQ(CountOf(k, place), CountOf(e, place)) << key;
  }
  for (const char* key : {kTextRefreshError, kTextReceivedChannel}) {
    EXPECT_NE(korean.Get().GetText(kSectionTexts, key).find("%s"), std::string::npos) << key;
  }
}

TEST(KeysTest, EachSkinValueIsThereAndSound) {
  for (const char* language : {"KOR", "ENG"}) {
    const ShippedSkin shipped(language);
    for (const SkinKey& entry : SkinKeys()) {
      EXPECT_TRUE(IsSound(shipped.Get(), entry))
          << language << " " << entry.section << " " << entry.key << " = "
          << shipped.Get().GetSkinValue(entry.section, entry.key);
    }
  }
}

TEST(KeysTest, TheSkinHoldsNoValueThatNobodyAsksFor) {
  std::map<std::string, Keys> known;
  for (const SkinKey& entry : SkinKeys()) known[entry.section].insert(entry.key);
  for (const auto& [name, section] : SectionsOf("image.ini")) {
    EXPECT_EQ(KeysOf(section), known[name]) << name;
  }
}

}  // namespace
}  // namespace feedloom
