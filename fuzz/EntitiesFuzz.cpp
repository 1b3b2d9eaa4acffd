// Escapes any text for an SQL statement. Its entities are decoded like by a simple, slow reference
// decoder.
#include <algorithm>
#include <utility>

#include "fuzz/FuzzKit.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

constexpr std::pair<std::string_view, char> kOrder[] = {
    {"&#38;#60;", '<'}, {"&lt;", '<'},   {"&#62;", '>'},   {"&gt;", '>'},  {"&#38;#38;", '&'},
    {"&amp;", '&'},     {"&#39;", '\''}, {"&apos;", '\''}, {"&#34;", '"'}, {"&quot;", '"'}};

std::string DecodedPlainly(std::string text) {
  for (const auto& [written, meant] : kOrder) {
    std::string next;
    for (std::size_t at = 0; at < text.size();) {
      const bool isHere = text.compare(at, written.size(), written) == 0;
      next += isHere ? meant : text[at];
      at += isHere ? written.size() : 1;
    }
    text = std::move(next);
  }
  return text;
}

// Reads the contents of an SQL string literal like the database, up to a single quote.
std::string ReadLiteral(std::string_view literal, bool& isWhole) {
  std::string text;
  for (std::size_t at = 0; at < literal.size(); ++at) {
    if (literal[at] == '\'' && literal.substr(++at, 1) != "'") {
      isWhole = false;
      return text;
    }
    text += literal[at];
  }
  isWhole = true;
  return text;
}

}  // namespace

void CheckInput(FuzzInput input) {
  const std::string text(input.Rest());
  const std::string decoded = UnescapeEntities(text);
  RequireEqual(decoded, DecodedPlainly(text), "each entity is decoded once, in the fixed order");
  Require(decoded.size() <= text.size(), "decoding makes no text longer");
  Require(text.find('&') != text.npos || decoded == text, "without an & nothing is decoded");

  bool isWhole = false;
  const std::string read = ReadLiteral(EscapeSqlText(text), isWhole);
  Require(isWhole, "no text ends the literal that it stands in");
  RequireEqual(read, decoded, "a literal reads as the decoded text");

  const std::string sql = FormatSql("%d '%s' '%s'", -7, text, "%s%n");
  RequireEqual(sql, "-7 '" + EscapeSqlText(text) + "' '%s%n'", "each field is filled once");
}

}  // namespace feedloom
