#include "profile/ProfileDatabase.h"

#include <fmt/core.h>
#include <sqlite3.h>
#include <unistd.h>

#include <initializer_list>
#include <memory>

#include "profile/KeptDatabase.h"
#include "profile/WriteAhead.h"

namespace feedloom {
namespace {

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

// Order -1 protects the folder: users can neither rename nor delete it.
constexpr char kInsertFolder[] = "INSERT INTO TB_FOLDER(folder_name, folder_order) VALUES(?1, -1)";
constexpr char kInsertCabinet[] =
    "INSERT INTO TB_SCRAP_CHANNEL(scrap_channel_title, scrap_channel_order) VALUES(?1, 0)";
constexpr char kInsertChannel[] =
    "INSERT INTO TB_CHANNEL(channel_folderID, channel_title, channel_xmllink, channel_htmllink,"
    " channel_order) SELECT folder_id, ?1, ?2, ?3, 0 FROM TB_FOLDER";

constexpr char kMoveAddresses[] =
    "UPDATE TB_CHANNEL SET channel_xmllink = ?2 || substr(channel_xmllink, length(?1) + 1)"
    " WHERE substr(channel_xmllink, 1, length(?1)) = ?1";

constexpr char kSampleSiteUrl[] = "https://feedloom.example/";

bool Run(sqlite3* database, const char* sql, std::initializer_list<std::string_view> values) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, sql, -1, &prepared, nullptr) != SQLITE_OK) return false;
  const std::unique_ptr<sqlite3_stmt, FinalizeStatement> statement(prepared);
  int index = 0;
  for (const std::string_view value : values) {
    sqlite3_bind_text(prepared, ++index, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
  }
  return sqlite3_step(prepared) == SQLITE_DONE;
}

bool Fill(sqlite3* database, const std::string& schema, const InitialContent& content) {
  return Execute(database, "BEGIN") && Execute(database, schema.c_str()) &&
         Run(database, kInsertFolder, {content.folderName}) &&
         Run(database, kInsertCabinet, {content.cabinetName}) &&
         Run(database, kInsertChannel,
             {content.sampleTitle, content.sampleFeedUrl, kSampleSiteUrl}) &&
         Execute(database, "COMMIT");
}

Failure Build(const std::string& path, const std::string& schema, const InitialContent& content) {
  sqlite3* opened = nullptr;
  const bool ok = sqlite3_open(path.c_str(), &opened) == SQLITE_OK;
  const KeptDatabase database(opened);
  if (ok && Fill(opened, schema, content)) return {};
  return fmt::format("Cannot make the database '{}': {}.", path, sqlite3_errmsg(opened));
}

void RemoveDatabase(const std::string& path) {
  for (const char* suffix : {"", "-journal"}) unlink((path + suffix).c_str());
}

}  // namespace

Failure CreateDatabase(const std::string& path, const std::string& schema,
                       const InitialContent& content) {
  const std::string temporary = path + ".new";
  RemoveDatabase(temporary);  // left by an interrupted call
  if (Failure failure = Build(temporary, schema, content)) {
    RemoveDatabase(temporary);
    return failure;
  }
  return MoveIntoPlace(temporary, path);
}

std::string DatabaseVersion() { return sqlite3_libversion(); }

bool MoveAddresses(const std::string& path, std::string_view from, std::string_view to) {
  constexpr std::chrono::seconds kDatabasePatience(1);  // with another program's lock
  const KeptDatabase database = OpenInBestMode(path, kDatabasePatience);  // on another disk, maybe
  return database && Run(database.get(), kMoveAddresses, {from, to});
}

}  // namespace feedloom
