#include "profile/ConvertProfile.h"

#include <fmt/core.h>
#include <sqlite3.h>

#include <string_view>
#include <vector>

#include "files/Path.h"
#include "files/Registry.h"
#include "files/RegistryKeys.h"
#include "files/TempFile.h"
#include "profile/KeptDatabase.h"
#include "profile/ProfileBackup.h"
#include "skin/HostConfig.h"

namespace feedloom {
namespace {

// The database function to_utf8(text), with the code page as its context.
void ToUtf8(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  const auto& codePage = *static_cast<const CodePage*>(sqlite3_user_data(context));
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(values[0]));
  const auto size = static_cast<std::size_t>(sqlite3_value_bytes(values[0]));
  const std::string utf8 = codePage.ToUtf8({text, size});
  sqlite3_result_text(context, utf8.data(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

// The first column of all rows.
std::vector<std::string> Column(sqlite3* database, const char* sql) {
  std::vector<std::string> cells;
  const auto keep = [](void* into, int, char** row, char**) {
    static_cast<std::vector<std::string>*>(into)->emplace_back(row[0]);
    return 0;
  };
  sqlite3_exec(database, sql, keep, &cells, nullptr);
  return cells;
}

// A statement for each column that may hold texts. The table of the backup holds UTF-8 already, as
// does the index of texts, which is a virtual table with others behind it.
constexpr char kStatements[] =
    "SELECT format('UPDATE \"%w\" SET \"%w\" = to_utf8(\"%w\") WHERE typeof(\"%w\") = ''text''',"
    " t.name, c.name, c.name, c.name)"
    " FROM pragma_table_list t, pragma_table_info(t.name) c"
    " WHERE t.schema = 'main' AND t.type = 'table' AND t.name NOT LIKE 'sqlite_%' AND t.name <> "
    "'FEEDLOOM_BACKUP'";

bool ConvertTexts(sqlite3* database, CodePage codePage) {
  sqlite3_create_function(database, "to_utf8", 1, SQLITE_UTF8, &codePage, ToUtf8, nullptr, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  const std::vector<std::string> statements = Column(database, kStatements);
  bool isDone = !statements.empty() && Execute(database, "BEGIN");
  for (const std::string& statement : statements)
    isDone = isDone && Execute(database, statement.c_str());
  return isDone && Execute(database, "COMMIT");
}

}  // namespace

Failure ConvertToUtf8(const ProfilePaths& paths) {
  const CodePage codePage = HostConfig(Registry(paths.registry)).GetCodePage();
  if (codePage == CodePage::Utf8()) return {};
  const TempFile converted(JoinPath(paths.dir, "converted.db"));
  if (auto failure = BackUpProfile(paths, converted.Path(), BackedUpLogins::LeftOut)) {
    return failure;
  }
  const auto convert = [codePage](sqlite3* database) { return ConvertTexts(database, codePage); };
  const RegistryEntry utf8{kHostKey, kValueCodePage, std::string(CodePage::Utf8().DeclaredName())};
  if (!ChangeBackup(converted.Path(), utf8, convert)) {
    return fmt::format("The texts of '{}' cannot be converted.", paths.database);
  }
  if (auto failure = TakeBackup(paths, converted.Path())) return failure;
  return CompleteRestore(paths);
}

}  // namespace feedloom
