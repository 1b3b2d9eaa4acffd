// What the host's tables answer. They are one for the process: the module's callbacks are plain
// functions and find nothing else. All of it belongs to the interface thread.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "skin/HostLookup.h"

namespace feedloom {

// `codePage` is that of the tables' texts and of the module's.
void SetHostTables(HostLookup tables, CodePage codePage);

// The two callbacks for the module; empty without tables.
std::string HostGetText(const char* section, const char* key);
std::string HostGetSkinValue(const char* section, const char* key);

// A text of the host program's own section; its "$" are line breaks.
QString HostText(const char* key);

QString FromModuleText(std::string_view text);

}  // namespace feedloom
