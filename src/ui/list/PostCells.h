// What the cells of the post list say. Pure functions; any thread.
#pragma once

#include <QString>
#include <string_view>

namespace feedloom {

// The day of a stored date, "2008-05-01"; empty for an empty or unreadable one.
QString DateCell(std::string_view stored);

}  // namespace feedloom
