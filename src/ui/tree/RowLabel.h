// How a row's name and its unread count make its label. Pure; texts are in the module's code page.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// "Economy(12)": the count stands right behind the name; no count when it is 0 or less.
std::string AppendCount(std::string_view name, int count);

}  // namespace feedloom
