#include "profile/HostTexts.h"

#include <memory>

#include "profile/IniFile.h"

namespace feedloom {

HostLookup ReadHostTexts(const HostConfig& config) {
  const auto answersFrom = [&config](const std::string& iniPath) {
    return [file = std::make_shared<const IniFile>(IniFile::Read(iniPath)),
            language = config.GetHostLanguage(),
            codePage = config.GetCodePage()](const char* section, const char* key) {
      return codePage.FromUtf8(file->ValueInLanguage(section, key, language).value_or(""));
    };
  };
  return {.HostGetText = answersFrom(config.GetStringIniPath()),
          .HostGetSkinValue = answersFrom(config.GetImageIniPath())};
}

}  // namespace feedloom
