#include "store/SqlText.h"

#include "platform/Text.h"

namespace feedloom {
namespace {

struct Entity {
  std::string_view written;
  std::string_view meant;
};

// The doubly escaped forms stand before the single ones that they contain.
constexpr Entity kEntities[] = {
    {"&#38;#60;", "<"}, {"&lt;", "<"},  {"&#62;", ">"},  {"&gt;", ">"},   {"&#38;#38;", "&"},
    {"&amp;", "&"},     {"&#39;", "'"}, {"&apos;", "'"}, {"&#34;", "\""}, {"&quot;", "\""},
};

}  // namespace

std::string UnescapeEntities(std::string_view text) {
  std::string result(text);
  for (const auto& [written, meant] : kEntities) {
    if (result.find(written) != std::string::npos) result = ReplaceAll(result, written, meant);
  }
  return result;
}

std::string EscapeSqlText(std::string_view text) {
  return ReplaceAll(UnescapeEntities(text), "'", "''");
}

}  // namespace feedloom
