#include "profile/HostTexts.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "files/Path.h"
#include "profile/IniFile.h"
#include "profile/SharePaths.h"

namespace feedloom {
namespace {

// A callback that returns the value of the first of these files that has it.
auto AnswersFrom(const HostConfig& config, std::initializer_list<std::string> paths) {
  auto files = std::make_shared<std::vector<IniFile>>();
  for (const std::string& path : paths) files->push_back(IniFile::Read(path));
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

HostLookup ReadHostTexts(const HostConfig& config, const std::string& ownTexts) {
  return {.HostGetText = AnswersFrom(config, {ownTexts, config.GetStringIniPath()}),
          .HostGetSkinValue = AnswersFrom(
              config, {JoinPath(config.GetImageDir(), kSkinIni), config.GetImageIniPath()})};
}

}  // namespace feedloom
