#include "store/StoreKit.h"

#include <fmt/core.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <sstream>
#include <utility>

namespace feedloom {
namespace {

std::string SchemaText() {
  std::ifstream file(FEEDLOOM_SCHEMA);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

class RawConnection {
 public:
  explicit RawConnection(const std::string& path) { sqlite3_open(path.c_str(), &handle_); }
  ~RawConnection() { sqlite3_close(handle_); }
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  void Run(const std::string& sql) {
    const int status = sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr);
    ASSERT_EQ(status, SQLITE_OK) << sqlite3_errmsg(handle_) << " in " << sql;
  }

  std::string FirstCell(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement, nullptr);
    std::string value = "(none)";
    if (sqlite3_step(statement) == SQLITE_ROW) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
      value = text == nullptr ? "(null)" : text;
    }
    sqlite3_finalize(statement);
    return value;
  }

 private:
  sqlite3* handle_ = nullptr;
};

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

TestStore::TestStore(CodePage codePage)
    : store_(std::make_shared<Store>(folder_.File("rssdb"), codePage, clock_,
                                     [this](std::string_view text) { Report(text); })) {
  Sql(SchemaText());
}

std::vector<std::string> TestStore::Reports() const {
  const MutexLock lock(mutex_);
  return reports_;
}

void TestStore::Report(std::string_view text) {
  const MutexLock lock(mutex_);
  reports_.emplace_back(text);
}

void TestStore::Sql(const std::string& sql) const { RawConnection(DbPath()).Run(sql); }

std::string TestStore::Value(const std::string& sql) const {
  return RawConnection(DbPath()).FirstCell(sql);
}

int TestStore::Count(const std::string& tableAndCondition) const {
  return std::stoi(Value("select count(*) from " + tableAndCondition));
}

int TestStore::AddChannelWithPosts(int folderId, const std::string& title, int posts) {
  Sql(
      fmt::format("insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, "
                  "channel_order) values('{}', 'http://example.com/{}', {}, 1)",
                  title, title, folderId));
  const int id = std::stoi(Value("select max(channel_id) from TB_CHANNEL"));
  for (int i = 1; i <= posts; ++i) {
    Sql(
        fmt::format("insert into TB_POST(post_channelID, post_title, post_link, post_pubDate, "
                    "post_desc) values({}, 'Post {}', 'l{}', '2008-05-01 10:00:{:02}', 'text')",
                    id, i, i, i % 60));
  }
  return id;
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
  sqlite3_exec(handle, "begin exclusive", nullptr, nullptr, nullptr);
  handle_ = handle;
}

ForeignLock::~ForeignLock() { sqlite3_close(static_cast<sqlite3*>(handle_)); }

std::string Korean(std::string_view utf8) { return CodePage::Korean().FromUtf8(utf8); }

}  // namespace feedloom
