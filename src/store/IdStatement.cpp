#include "store/IdStatement.h"

#include <algorithm>

#include "store/Connection.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

constexpr std::size_t kMaxTerms = 900;

std::string StatementFor(std::string_view base, std::string_view clause, std::string_view closing,
                         std::span<const int> ids) {
  std::string statement(base);
  std::string_view joint = " Where";
  for (const int id : ids) {
    statement.append(joint).append(FormatSql(clause, id));
    joint = " Or";
  }
  return statement.append(closing);
}

}  // namespace

bool ExecuteForIds(Store& store, std::string_view base, std::string_view clause,
                   std::string_view closing, std::span<const int> ids) {
  Connection connection(store);
  if (!connection) return false;
  bool all = true;
  do {
    const std::span<const int> batch = ids.first(std::min(ids.size(), kMaxTerms));
    ids = ids.subspan(batch.size());
    all = connection.Execute(StatementFor(base, clause, closing, batch)) && all;
  } while (!ids.empty());
  return all;
}

}  // namespace feedloom
