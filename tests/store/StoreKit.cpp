#include "store/StoreKit.h"

#include <fmt/core.h>
#include <sqlite3.h>

#include <fstream>

namespace feedloom {
namespace {

Mutex logMutex;
std::vector<std::string> logged FEEDLOOM_GUARDED_BY(logMutex);

int LogStatement(unsigned, void*, void* statement, void*) {
  const MutexLock lock(logMutex);
  logged.emplace_back(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
  return 0;
}

extern "C" int TraceNewConnection(sqlite3* handle, const char**, const sqlite3_api_routines*) {
  return sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, LogStatement, nullptr);
}

}  // namespace

TestStore::TestStore() {
  store_ = std::make_shared<Store>(DbPath(), CodePage::Korean(), clock_, [this](auto text) {
    const MutexLock lock(mutex_);
    reports_.emplace_back(text);
  });
  AddTables({"schema.sql"});
}

void TestStore::AddTables(std::initializer_list<const char*> names) const {
  for (const char* const name : names) {
    std::ifstream text(std::string(FEEDLOOM_SHARE) + name);
    Sql({std::istreambuf_iterator(text), {}});
  }
}

std::vector<std::string> TestStore::Reports() const {
  const MutexLock lock(mutex_);
  return reports_;
}

std::string TestStore::Value(const std::string& sql) const {
  const auto keepFirst = [](void* kept, int, char** cells, char**) {
    auto& first = *static_cast<std::string*>(kept);
    if (first == "(none)") first = cells[0] == nullptr ? "(null)" : cells[0];
    return 0;
  };
  std::string cell = "(none)";
  sqlite3* handle = nullptr;
  sqlite3_open(DbPath().c_str(), &handle);
  const int status = sqlite3_exec(handle, sql.c_str(), keepFirst, &cell, nullptr);
  EXPECT_EQ(status, SQLITE_OK) << sqlite3_errmsg(handle) << " in " << sql;
  sqlite3_close(handle);
  return cell;
}

int TestStore::Count(const std::string& tableAndCondition) const {
  return std::stoi(Value("select count(*) from " + tableAndCondition));
}

int TestStore::AddChannelWithPosts(int folderId, const std::string& title, int posts) {
  Sql(fmt::format(
      "insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, channel_order) "
      "values('{0}', 'http://example.com/{0}', {1}, 1); with recursive n(i) as (select 1 union all "
      "select i + 1 from n where i < {2}) insert into TB_POST(post_channelID, post_title, "
      "post_link, post_pubDate, post_desc) select (select max(channel_id) from TB_CHANNEL), 'Post '"
      " || i, 'l' || i, printf('2008-05-01 10:00:%02d', i % 60), 'text' from n where i <= {2}",
      title, folderId, posts));
  return std::stoi(Value("select max(channel_id) from TB_CHANNEL"));
}

StatementLog::StatementLog() {
  Take();
  sqlite3_auto_extension(reinterpret_cast<void (*)()>(TraceNewConnection));
}

StatementLog::~StatementLog() { sqlite3_reset_auto_extension(); }

std::vector<std::string> StatementLog::Take() {
  const MutexLock lock(logMutex);
  return std::exchange(logged, {});
}

ForeignLock::ForeignLock(const std::string& dbPath) {
  sqlite3* handle = nullptr;
  sqlite3_open(dbPath.c_str(), &handle);
  reset(handle, sqlite3_close);
  sqlite3_exec(handle, "begin exclusive", nullptr, nullptr, nullptr);
}

std::string Korean(std::string_view utf8) { return CodePage::Korean().FromUtf8(utf8); }

}  // namespace feedloom
