#include "store/Filters.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "filter/FilterJson.h"
#include "store/Connection.h"

namespace feedloom {
namespace {

// A text for a statement as it is: FormatSql would change what looks like a character reference.
std::string HexText(std::string_view text) {
  std::string literal = "Cast(x'";
  for (const char c : text) {
    fmt::format_to(std::back_inserter(literal), "{:02x}", static_cast<unsigned char>(c));
  }
  return literal + "' As Text)";
}

}  // namespace

std::optional<std::vector<FilterRule>> LoadFilters(Store& store) {
  std::vector<FilterRule> rules;
  Connection connection(store);
  if (!connection) return std::nullopt;
  const Connection::Operation operation(connection);
  if (!HasTable(connection, "TB_FILTER")) return rules;
  const auto rows = connection.Query("Select filter_rule From TB_FILTER Order By filter_order");
  if (!rows) return std::nullopt;
  for (int row = 0; row < rows->Rows(); ++row) {
    ReadFilters read = FiltersFromJson("[" + rows->Text(row, 0) + "]");
    std::ranges::move(read.rules, std::back_inserter(rules));
  }
  return rules;
}

bool SaveFilters(Store& store, std::span<const FilterRule> rules) {
  std::string sql = "Begin Immediate; Delete From TB_FILTER;";
  for (const FilterRule& rule : rules) {
    sql += "Insert Into TB_FILTER(filter_rule) Values(" + HexText(FilterToJson(rule)) + ");";
  }
  Connection connection(store);
  return connection && connection.Execute(sql + "Commit;");
}

}  // namespace feedloom
