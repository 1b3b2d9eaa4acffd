#include "store/SqlText.h"

#include <fmt/args.h>
#include <fmt/printf.h>

#include "text/Text.h"

namespace feedloom {
namespace {

struct Entity {
  std::string_view written;
  std::string_view meant;
};

// In the order in which they are decoded. The ampersand comes after the doubly escaped forms, so
// that what it uncovers is not taken for one of them.
constexpr Entity kEntities[] = {
    {"&#38;#60;", "<"}, {"&lt;", "<"},  {"&#62;", ">"},  {"&gt;", ">"},   {"&#38;#38;", "&"},
    {"&amp;", "&"},     {"&#39;", "'"}, {"&apos;", "'"}, {"&#34;", "\""}, {"&quot;", "\""},
};

}  // namespace

std::string UnescapeEntities(std::string_view text) {
  std::string result(text);
  if (text.find('&') == text.npos) return result;
  for (const auto& [written, meant] : kEntities) {
    if (result.find(written) != std::string::npos) result = ReplaceAll(result, written, meant);
  }
  return result;
}

std::string EscapeSqlText(std::string_view text) {
  return ReplaceAll(UnescapeEntities(text), "'", "''");
}

// Not in the header, because the library's formatting is slow to compile.
std::string FillSql(std::string_view statement, std::initializer_list<SqlArgument> arguments) {
  fmt::dynamic_format_arg_store<fmt::printf_context> fields;
  for (const SqlArgument& argument : arguments) {
    if (const int* const number = std::get_if<int>(&argument)) {
      fields.push_back(*number);
    } else {
      fields.push_back(EscapeSqlText(std::get<std::string_view>(argument)));
    }
  }
  return fmt::vsprintf(statement, fmt::basic_format_args<fmt::printf_context>(fields));
}

}  // namespace feedloom
