#include "skin/HostConfig.h"

#include "files/Path.h"
#include "skin/Keys.h"
#include "text/Text.h"

namespace feedloom {
namespace {

// The longest prefix of `text` with whole characters and at most `limit` bytes.
std::string CutText(std::string_view text, std::size_t limit, CodePage codePage) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t next = end + codePage.CharLength(text.substr(end));
    if (next > limit) break;
    end = next;
  }
  return std::string(text.substr(0, end));
}

}  // namespace

CodePage HostConfig::GetCodePage() const {
  return CodePage::FromName(registry_.ReadString(kHostKey, kValueCodePage).value_or(""));
}

std::string HostConfig::Path(const char* name) const {
  return registry_.ReadString(kHostKey, name).value_or("").substr(0, kMaxHostPath);
}

std::string HostConfig::Text(const char* name) const {
  const auto value = registry_.ReadString(kHostKey, name);
  if (!value) return {};
  const CodePage codePage = GetCodePage();
  return CutText(codePage.FromUtf8(*value), kMaxHostText, codePage);
}

std::string HostConfig::GetImageDir() const { return WithTrailingSeparator(Path(kValueImageDir)); }
std::string HostConfig::GetCurrentPath() const { return Path(kValueCurrentPath); }
std::string HostConfig::GetWorkDir() const { return Path(kValueWorkDir); }

std::string HostConfig::GetAppTitle() const {
  std::string title = Text(kValueAppTitle);
  return title.empty() ? kDefaultAppTitle : title;
}

std::string HostConfig::GetHostLanguage() const { return Text(kValueLanguage); }

std::string HostConfig::GetModelName() const {
  const bool present = registry_.ReadString(kHostKey, kValueModelName).has_value();
  return present ? Text(kValueModelName) : GetDefaultModelName();
}

std::string HostConfig::GetDefaultModelName() const { return Text(kValueDefaultModelName); }
std::string HostConfig::GetPlatform() const { return Text(kValuePlatform); }
std::string HostConfig::GetOsType() const { return Text(kValueOsType); }

bool HostConfig::IsDebugMode() const {
  return registry_.ReadDword(kHostKey, kValueDebugMode).value_or(0) > 0;
}

bool HostConfig::Is(const char* name, const char* value) const {
  return EqualsIgnoringAsciiCase(registry_.ReadString(kHostKey, name).value_or(""), value);
}

bool HostConfig::OpensLinksOutside() const { return Is(kValuePostLinks, kLinksOutside); }
bool HostConfig::AnnouncesChannels() const { return Is(kValueNotice, kNoticeChannels); }
bool HostConfig::StartsWithLast() const { return Is(kValueStart, kStartLast); }
bool HostConfig::SaysEmptyLists() const { return Is(kValueEmptyList, kEmptyListLine); }
bool HostConfig::HasHelpfulDialogs() const { return Is(kValueDialogs, kDialogsHelpful); }
bool HostConfig::ReadsLeniently() const { return Is(kValueLenient, kLenientOn); }
bool HostConfig::KeepsPeriods() const { return Is(kValuePeriods, kPeriodsOn); }
bool HostConfig::UpdatesByHost() const { return Is(kValueUpdates, kUpdatesByHost); }
bool HostConfig::SearchesTexts() const { return Is(kValueSearch, kSearchText); }

bool HostConfig::ShowsSiteIcons() const { return Is(kValueIcons, kIconsOn); }
bool HostConfig::OffersFilters() const { return Is(kValueFilters, kFiltersOn); }
bool HostConfig::SelectsCarefully() const { return Is(kValueSelection, kSelectionCareful); }

ListPlace HostConfig::GetListPlace() const {
  if (Is(kValueListPlace, kListBeside)) return ListPlace::Beside;
  return Is(kValueListPlace, kListAbove) ? ListPlace::Above : ListPlace::Default;
}

std::string HostConfig::GetIniDir() const { return WithTrailingSeparator(Path(kValueIniDir)); }
std::string HostConfig::GetImageIniPath() const { return JoinPath(GetIniDir(), "image.ini"); }
std::string HostConfig::GetStringIniPath() const { return JoinPath(GetIniDir(), "string.ini"); }
std::string HostConfig::GetBmCorvaneIniPath() const {
  return JoinPath(GetIniDir(), "bm_Corvane.ini");
}
std::string HostConfig::GetCorvaneIniPath() const { return JoinPath(GetIniDir(), "corvane.ini"); }

std::string HostConfig::GetModelIniPath() const {
  const std::string name = GetCodePage().ToUtf8(GetModelName());  // paths are UTF-8
  return JoinPath(GetIniDir(), ToUpperAscii(name) + ".ini");
}

}  // namespace feedloom
