#include "profile/HostTexts.h"

#include <memory>
#include <utility>
#include <vector>

#include "platform/Path.h"
#include "profile/IniFile.h"
#include "profile/SharePaths.h"

namespace feedloom {
namespace {

// Answers from the first of these files that has the value.
template <typename... Paths>
auto AnswersFrom(const HostConfig& config, const Paths&... paths) {
  auto files = std::make_shared<std::vector<IniFile>>();
  (files->push_back(IniFile::Read(paths)), ...);
  return [files = std::shared_ptr<const std::vector<IniFile>>(std::move(files)),
          language = config.GetHostLanguage(),
          codePage = config.GetCodePage()](const char* section, const char* key) {
    for (const IniFile& file : *files) {
      if (const auto value = file.ValueInLanguage(section, key, language)) {
        return codePage.FromUtf8(*value);
      }
    }
    return std::string();
  };
}

}  // namespace

HostLookup ReadHostTexts(const HostConfig& config) {
  return {.HostGetText = AnswersFrom(config, config.GetStringIniPath()),
          .HostGetSkinValue = AnswersFrom(config, JoinPath(config.GetImageDir(), kSkinIni),
                                          config.GetImageIniPath())};
}

}  // namespace feedloom
