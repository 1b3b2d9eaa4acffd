// What the project ships for each name that the module asks the host for.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/ShippedSkin.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "skin/Colors.h"
#include "skin/KeyTable.h"
#include "skin/Keys.h"
#include "skin/Labels.h"

namespace feedloom {
namespace {

using Keys = std::set<std::string>;
using Section = std::map<std::string, std::string>;

// A shipped file's values, by section and key; each stands there once.
std::map<std::string, Section> SectionsOf(const std::string& file) {
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

// A number in an image file's head.
unsigned NumberAt(const std::string& head, std::size_t at, std::size_t size, bool isLargestFirst) {
  unsigned number = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t place = at + (isLargestFirst ? i : size - 1 - i);
    number = number * 256 + static_cast<unsigned char>(head.at(place));
  }
  return number;
}

using Size = std::pair<unsigned, unsigned>;

Size SizeOf(const std::string& path) {
  std::string head(26, '\0');
  std::ifstream(path, std::ios::binary)
      .read(head.data(), static_cast<std::streamsize>(head.size()));
  if (path.ends_with(".gif")) return {NumberAt(head, 6, 2, false), NumberAt(head, 8, 2, false)};
  if (path.ends_with(".bmp")) return {NumberAt(head, 18, 4, false), NumberAt(head, 22, 4, false)};
  return {NumberAt(head, 16, 4, true), NumberAt(head, 20, 4, true)};
}

std::string WithEnding(const std::string& path, const char* ending) {
  return std::string(path).insert(path.rfind('.'), ending);
}

bool IsDrawn(const std::string& path) { return path.ends_with(".svg"); }  // sharp in any size

// The image once more for screens with twice as many pixels.
bool HasBothSizes(const std::string& path) {
  if (!IsFile(path) || IsDrawn(path)) return IsFile(path);
  const auto [width, height] = SizeOf(path);
  return width > 0 && SizeOf(WithEnding(path, "@2x")) == Size(2 * width, 2 * height);
}

// The image files under this key, without those of the second size.
std::vector<std::string> ImagesOf(const Skin& skin, const SkinKey& entry) {
  const std::string path = skin.GetImagePath(entry.section, entry.key);
  if (entry.kind == SkinValueKind::ImageWithoutF) return {path + "f"};
  if (entry.kind != SkinValueKind::Button) return {path};
  return {path, WithEnding(path, "_hover"), WithEnding(path, "_pressed"),
          WithEnding(path, "_disabled")};
}

bool IsSound(const Skin& skin, const SkinKey& entry) {
  const std::string value = skin.GetSkinValue(entry.section, entry.key);
  switch (entry.kind) {
    case SkinValueKind::Number:
      return IsNumber(value) && ParseInt(value) > 0;
    case SkinValueKind::Rect:
      return IsArea(ParseSkinRect(value));
    case SkinValueKind::Font:
      return IsFont(value);
    case SkinValueKind::File:
      return !value.empty() && IsFile(skin.GetImagePath(entry.section, entry.key));
    case SkinValueKind::ImageWithoutF:
    case SkinValueKind::Image:
    case SkinValueKind::Button:
      break;
  }
  return !value.empty() && std::ranges::all_of(ImagesOf(skin, entry), HasBothSizes);
}

using Files = std::set<std::string>;

void AddBothSizes(Files& files, const std::string& path) {
  files.insert(path);
  if (!IsDrawn(path)) files.insert(WithEnding(path, "@2x"));
}

bool NamesFile(SkinValueKind kind) {
  return kind == SkinValueKind::File || kind == SkinValueKind::Image ||
         kind == SkinValueKind::ImageWithoutF || kind == SkinValueKind::Button;
}

// What a page of the skin takes in, by its attributes.
Files FilesOfPage(const std::string& page) {
  std::ifstream file(page);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  Files files;
  for (const std::string attribute : {" src=\"", " href=\""}) {
    for (auto at = text.find(attribute); at != text.npos; at = text.find(attribute, at + 1)) {
      const auto begin = at + attribute.size();
      const std::string name = text.substr(begin, text.find('"', begin) - begin);
      files.insert((std::filesystem::path(page).parent_path() / name).lexically_normal());
    }
  }
  return files;
}

// What the module finds without asking the host for a name.
constexpr std::array kNamedByPath = {"Image/Skyfold_image/announce_bg.bmp",
                                     "Image/Skyfold_image/new_ani01.gif",
                                     "Image/Image_KOR/Skyfold_image/new_ani01.gif"};

// Lists the differences.
void ExpectSame(const Keys& used, const Keys& present, const std::string& section) {
  Keys missing;
  std::ranges::set_difference(used, present, std::inserter(missing, missing.end()));
  EXPECT_EQ(missing, Keys()) << "used and not present in " << section;
  Keys idle;
  std::ranges::set_difference(present, used, std::inserter(idle, idle.end()));
  EXPECT_EQ(idle, Keys()) << "present and not used in " << section;
}

// All names in the program's sources.
std::set<std::string> NamesInSources() {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(FEEDLOOM_SOURCES)) {
    const auto kind = entry.path().extension();
    if (kind != ".cpp" && kind != ".h") continue;
    std::ifstream file(entry.path());
    std::string name;
    for (char c = 0; file.get(c);) {
      if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
        name += c;
      } else if (!name.empty()) {
        names.insert(std::exchange(name, {}));
      }
    }
  }
  return names;
}

TEST(KeysTest, EachKeyIsUsedByTheSources) {
  const Keys constants = {
#define FEEDLOOM_TEXT(constant, key) #constant,
#include "skin/TextKeys.def"
#undef FEEDLOOM_TEXT
#define FEEDLOOM_LABEL(constant, key, builtIn) #constant,
#include "skin/LabelKeys.def"
#undef FEEDLOOM_LABEL
#define FEEDLOOM_HOST_TEXT(constant, key) #constant,
#include "skin/HostTextKeys.def"
#undef FEEDLOOM_HOST_TEXT
#define FEEDLOOM_SKIN(constant, section, key, kind) #constant,
#include "skin/SkinKeys.def"
#undef FEEDLOOM_SKIN
#define FEEDLOOM_COLOR(constant, key, builtIn) #constant,
#include "skin/ColorKeys.def"
#undef FEEDLOOM_COLOR
  };
  const Keys names = NamesInSources();
  Keys unused;
  std::ranges::set_difference(constants, names, std::inserter(unused, unused.end()));
  EXPECT_EQ(unused, Keys());
}

TEST(KeysTest, EachTextIsThereInBothLanguagesAndNoOther) {
  auto sections = SectionsOf("string.ini");
  Keys known = KnownTexts();
  ExpectSame(known, KeysOf(sections["FEEDLOOM"]), "Korean");
  for (const char* key : kAddresses) known.erase(key);
  for (const Label& label : Labels()) known.insert(label.key);  // Korean is built in
  ExpectSame(known, KeysOf(sections["FEEDLOOM.ENG"]), "English");
  const Keys host = {
#define FEEDLOOM_HOST_TEXT(constant, key) key,
#include "skin/HostTextKeys.def"
#undef FEEDLOOM_HOST_TEXT
  };
  ExpectSame(host, KeysOf(sections["HALVIX"]), "the host's Korean");
  ExpectSame(host, KeysOf(sections["HALVIX.ENG"]), "the host's English");
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
    for (const char* name : {kLightSkin, kDarkSkin}) {
      const ShippedSkin shipped(language, name);
      for (const SkinKey& entry : SkinKeys()) {
        EXPECT_TRUE(IsSound(shipped.Get(), entry))
            << language << " " << name << " " << entry.section << " " << entry.key << " = "
            << shipped.Get().GetSkinValue(entry.section, entry.key);
      }
    }
  }
}

// Besides, a section "[X.ENG]" says what differs from "[X]" in a language.
TEST(KeysTest, TheSkinHoldsNoValueThatNobodyAsksFor) {
  std::map<std::string, Keys> known;
  for (const SkinKey& entry : SkinKeys()) known[entry.section].insert(entry.key);
  for (const auto& [name, section] : SectionsOf("image.ini")) {
    const auto dot = name.find('.');
    const Keys keys = KeysOf(section);
    if (dot == name.npos) {
      EXPECT_EQ(keys, known[name]) << name;
    } else {
      EXPECT_TRUE(std::ranges::includes(known[name.substr(0, dot)], keys)) << name;
    }
  }
}

TEST(KeysTest, ASkinHasEachColorAndNoOther) {
  Keys known;
  for (const ColorKey& color : ColorKeys()) known.insert(color.key);
  for (const char* name : {kLightSkin, kDarkSkin}) {
    const std::string file = JoinPath(JoinPath("skin", name), kSkinIni);
    EXPECT_EQ(KeysOf(SectionsOf(file)[kSectionColors]), known) << name;
  }
  const ShippedSkin light("KOR", kLightSkin);
  for (const ColorKey& color : ColorKeys()) {
    EXPECT_EQ(GetColor(light.Get(), color), color.builtIn) << color.key;
  }
}

TEST(KeysTest, ASkinHoldsTheFilesThatSomebodyUsesAndNoOther) {
  for (const char* name : {kLightSkin, kDarkSkin}) {
    const std::string dir = JoinPath(JoinPath(ShippedShareDir(), "skin"), name);
    Files used = {JoinPath(dir, kSkinIni)};
    for (const char* path : kNamedByPath) AddBothSizes(used, JoinPath(dir, path));
    for (const char* language : {"KOR", "ENG"}) {
      const ShippedSkin shipped(language, name);
      used.merge(FilesOfPage(shipped.Get().GetImagePath(kSectionHtml, kImageMainPage)));
      for (const SkinKey& entry : SkinKeys()) {
        if (!NamesFile(entry.kind)) continue;
        for (const std::string& path : ImagesOf(shipped.Get(), entry)) {
          entry.kind == SkinValueKind::File ? void(used.insert(path)) : AddBothSizes(used, path);
        }
      }
    }
    Files there;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dir)) {
      if (entry.is_regular_file()) there.insert(entry.path());
    }
    EXPECT_EQ(there, used) << name;
  }
}

}  // namespace
}  // namespace feedloom
