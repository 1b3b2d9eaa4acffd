#include "host/HostTables.h"

#include <utility>

#include "skin/Keys.h"

namespace feedloom {
namespace {

struct Tables {
  HostLookup lookup;
  CodePage codePage = CodePage::Korean();
};

Tables& CurrentTables() {
  static Tables tables;
  return tables;
}

}  // namespace

void SetHostTables(HostLookup tables, CodePage codePage) {
  CurrentTables() = {std::move(tables), codePage};
}

std::string HostGetText(const char* section, const char* key) {
  const auto& answer = CurrentTables().lookup.HostGetText;
  return answer ? answer(section, key) : std::string();
}

std::string HostGetSkinValue(const char* section, const char* key) {
  const auto& answer = CurrentTables().lookup.HostGetSkinValue;
  return answer ? answer(section, key) : std::string();
}

QString HostText(const char* key) {
  return FromModuleText(HostGetText(kSectionHost, key)).replace('$', '\n');
}

QString FromModuleText(std::string_view text) {
  return QString::fromStdString(CurrentTables().codePage.ToUtf8(text));
}

}  // namespace feedloom
