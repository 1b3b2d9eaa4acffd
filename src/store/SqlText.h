// Puts texts into SQL statements.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace feedloom {

// Returns `text` with these character references of XML decoded: "&lt;", "&gt;", "&amp;", "&apos;",
// "&quot;", "&#62;", "&#39;", "&#34;", and the doubly escaped "&#38;#60;" and "&#38;#38;". They are
// decoded one after the other in a fixed order, so that "&amp;lt;" becomes "&lt;" and "&amp;quot;"
// a quote. Pure; any thread.
std::string UnescapeEntities(std::string_view text);

// Returns `text` for a place between single quotes in a statement: with UnescapeEntities applied
// and each "'" doubled. Pure; any thread.
std::string EscapeSqlText(std::string_view text);

using SqlArgument = std::variant<int, std::string_view>;

// Returns `statement` with its "%d" and "'%s'" fields replaced by `arguments`, texts after
// EscapeSqlText. Pure; any thread.
std::string FillSql(std::string_view statement, std::initializer_list<SqlArgument> arguments);

template <typename... Arguments>
std::string FormatSql(std::string_view statement, const Arguments&... arguments) {
  return FillSql(statement, {SqlArgument(arguments)...});
}

}  // namespace feedloom
