// How a text becomes part of a statement.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace feedloom {

// A copy of `text` with the entities of markup decoded: the two doubly escaped forms
// ("&#38;#60;", "&#38;#38;"), "lt", "gt", "amp", "apos" and "quot" by name, and "gt", apostrophe
// and double quote by number (62, 39, 34). One pass an entity, in a fixed order, so that "&amp;lt;"
// becomes "&lt;" and stays so. Pure; any thread.
std::string UnescapeEntities(std::string_view text);

// A copy of `text` for a place between single quotes in a statement: entities decoded, then each
// "'" doubled. Pure; any thread.
std::string EscapeSqlText(std::string_view text);

using SqlArgument = std::variant<int, std::string_view>;

// `statement` with its "%d" and "'%s'" fields filled in; each text passes EscapeSqlText.
std::string FillSql(std::string_view statement, std::initializer_list<SqlArgument> arguments);

template <typename... Arguments>
std::string FormatSql(std::string_view statement, const Arguments&... arguments) {
  return FillSql(statement, {SqlArgument(arguments)...});
}

}  // namespace feedloom
