// The host's configuration: the values of the registry key HKEY_LOCAL_MACHINE\SOFTWARE\Halvix3.0.
#pragma once

#include <cstddef>
#include <string>

#include "files/Registry.h"
#include "text/CodePage.h"

namespace feedloom {

// The length in bytes at which the getters truncate paths and texts. The host keeps them in
// zero-terminated buffers of 260 and 128 bytes. Texts are truncated between characters.
inline constexpr std::size_t kMaxHostPath = 259;
inline constexpr std::size_t kMaxHostText = 127;

inline constexpr char kDefaultAppTitle[] = "Halvix 3.0";

// Where the host wants the list: above the page with a height in pixels, or with a share of the
// window, or beside the page with rows of two lines.
enum class ListPlace { Default, Above, Beside };

// Each getter reads its value from the registry at every call, and returns an empty string when it
// is missing. Paths are the file system's bytes, texts are in the module's code page. Any thread.
class HostConfig {
 public:
  explicit HostConfig(Registry registry) : registry_(std::move(registry)) {}

  // The code page of the module's texts: UTF-8 when CODEPAGE names it, else the Korean one.
  CodePage GetCodePage() const;

  std::string GetImageDir() const;  // with a separator at the end
  std::string GetCurrentPath() const;
  std::string GetWorkDir() const;

  std::string GetAppTitle() const;      // kDefaultAppTitle when missing or empty
  std::string GetHostLanguage() const;  // "KOR", "ENG"
  std::string GetModelName() const;     // GetDefaultModelName() when missing
  std::string GetDefaultModelName() const;
  std::string GetPlatform() const;
  std::string GetOsType() const;
  bool IsDebugMode() const;

  // Whether links of posts open in the system's browser, and the pane shows no web pages.
  bool OpensLinksOutside() const;
  ListPlace GetListPlace() const;

  // Whether new posts are announced by their channels, when the refresh that brought them has
  // ended, and not by their number, when the notice's period is over.
  bool AnnouncesChannels() const;

  // Whether the window begins with what it showed last, and not with the main page alone.
  bool StartsWithLast() const;

  // Whether a list without posts says so itself, beside an empty page in place of the main page.
  bool SaysEmptyLists() const;

  // Whether a new folder and a channel's move have dialogs with titles of their own, a rename to
  // the same name is none, and the dialogs of a channel say why its feed failed.
  bool HasHelpfulDialogs() const;

  // Whether feeds and lists of subscriptions with common faults are read as far as they can be.
  bool ReadsLeniently() const;

  // Whether a refresh that starts by itself leaves channels out until their feeds' periods are
  // over.
  bool KeepsPeriods() const;

  // Whether the host has channels refreshed when their time has come, in place of the module.
  bool UpdatesByHost() const;

  // Whether a search may look in the texts of posts, and does so at first.
  bool SearchesTexts() const;

  // Whether channels have the icons of their sites, which are asked for them.
  bool ShowsSiteIcons() const;

  // Whether the user can edit filters of posts.
  bool OffersFilters() const;

  // Whether the module selects, lists and marks read only what the user is sure to mean:
  // docs/host-interface.md tells the cases.
  bool SelectsCarefully() const;

  // The directory of the host's ini files, with a separator at the end, and the paths of its files.
  std::string GetIniDir() const;
  std::string GetImageIniPath() const;
  std::string GetStringIniPath() const;
  std::string GetBmCorvaneIniPath() const;
  std::string GetCorvaneIniPath() const;
  std::string GetModelIniPath() const;  // the model name in ASCII upper case, with ".ini"

 private:
  std::string Path(const char* name) const;
  std::string Text(const char* name) const;
  bool Is(const char* name, const char* value) const;

  Registry registry_;
};

}  // namespace feedloom
