// The texts and skin values that the host hands to the module. They are global because the module's
// callbacks are plain functions without a context. Interface thread only.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "skin/HostLookup.h"
#include "text/CodePage.h"

namespace feedloom {

// Replaces the tables. `codePage` is the encoding of their texts, which the module uses too.
void SetHostTables(HostLookup tables, CodePage codePage);

// The two callbacks for the module. They return the value in the tables' code page; empty when
// there is none, or no tables were set.
std::string HostGetText(const char* section, const char* key);
std::string HostGetSkinValue(const char* section, const char* key);

// The text under `key` in the host program's own section, with each "$" as a line break.
QString HostText(const char* key);

// Decodes a text in the module's code page.
QString FromModuleText(std::string_view text);

}  // namespace feedloom
