#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Plain `text` for a place between tags or in an attribute of a page. Pure; any thread.
std::string EscapedText(std::string_view text);

}  // namespace feedloom
