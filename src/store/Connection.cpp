#include "store/Connection.h"

#include <sqlite3.h>

#include <cstdlib>
#include <utility>

#include "store/Like.h"
#include "store/WriteAheadLog.h"

namespace feedloom {
namespace {

std::string_view ValueText(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

// The SQL function like(pattern, text). SQLite's own one takes the bytes for UTF-8, so that it does
// not find words in other code pages.
void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL ||
      sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
    return;
  }
  const auto* store = static_cast<const Store*>(sqlite3_user_data(context));
  sqlite3_result_int(context, LikeMatches(ValueText(arguments[0]), ValueText(arguments[1]),
                                          store->TextCodePage()));
}

// A statement with parameters, which is read once and run often.
class BoundStatement {
 public:
  // An empty `sql` is never run.
  BoundStatement(sqlite3* database, const std::string& sql) {
    if (!sql.empty()) sqlite3_prepare_v2(database, sql.c_str(), -1, &statement_, nullptr);
  }
  ~BoundStatement() { sqlite3_finalize(statement_); }
  BoundStatement(const BoundStatement&) = delete;
  BoundStatement& operator=(const BoundStatement&) = delete;

  // Runs it with ?1 = `id` and ?2 on = `texts`. False after a failure, also of its reading.
  bool Run(int id, const std::vector<std::string>& texts) {
    if (statement_ == nullptr) return false;
    sqlite3_bind_int(statement_, 1, id);
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
      const std::string& text = texts[static_cast<std::size_t>(i)];
      sqlite3_bind_text(statement_, i + 2, text.data(), static_cast<int>(text.size()),
                        SQLITE_STATIC);
    }
    const bool isDone = sqlite3_step(statement_) == SQLITE_DONE;
    return sqlite3_reset(statement_) == SQLITE_OK && isDone;
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

int WaitForOtherProgram(void* store, int tries) FEEDLOOM_NO_THREAD_SAFETY_ANALYSIS {
  return static_cast<Store*>(store)->WaitForOtherProgram(tries) ? 1 : 0;
}

}  // namespace

void ResultTable::Free::operator()(char** cells) const { sqlite3_free_table(cells); }

const char* ResultTable::Cell(int row, int column) const {
  return cells_.get()[static_cast<std::ptrdiff_t>(row + 1) * columns_ + column];
}

std::string ResultTable::Text(int row, int column) const {
  const char* cell = Cell(row, column);
  return cell == nullptr ? std::string() : std::string(cell);
}

int ResultTable::Int(int row, int column) const {
  const char* cell = Cell(row, column);
  return cell == nullptr ? 0 : std::atoi(cell);
}

Connection::Connection(Store& store, ErrorReport report)
    : store_(store), report_(report ? std::move(report) : [&store](std::string_view message) {
        store.ReportStoreError(message);
      }) {
  open_ = sqlite3_open(store.DbPath().c_str(), &handle_) == SQLITE_OK;
  if (!open_) {
    report_("Can't open database");
    return;
  }
  sqlite3_create_function(handle_, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, &store, Like,
                          nullptr, nullptr);
  sqlite3_busy_handler(handle_, WaitForOtherProgram, &store);
  KeepWriteAheadLog(handle_);
}

Connection::~Connection() { sqlite3_close(handle_); }

Connection::Operation::Operation(Connection& connection, Pauses pauses)
    : connection_(connection), pauses_(pauses) {
  if (pauses_ == Pauses::Kept) connection_.store_.EnterStoreBusy();
  connection_.inOperation_ = true;
}

Connection::Operation::~Operation() {
  connection_.inOperation_ = false;
  if (pauses_ == Pauses::Kept) connection_.store_.LeaveStoreBusy();
}

// Calls `statements` under the store's lock, with the pauses unless the operation has them.
template <typename Statements>
void Connection::Paced(Statements statements) {
  if (!inOperation_) store_.EnterStoreBusy();
  {
    const MutexLock lock(store_.Lock());
    statements();
  }
  if (!inOperation_) store_.LeaveStoreBusy();
}

template <typename Statement>
bool Connection::Run(Statement statement) {
  char* message = nullptr;
  int status = SQLITE_OK;
  Paced([&] { status = statement(&message); });
  if (status == SQLITE_OK) return true;
  report_(message != nullptr ? message : sqlite3_errstr(status));
  sqlite3_free(message);
  return false;
}

std::optional<ResultTable> Connection::Query(const std::string& sql) {
  char** cells = nullptr;
  int rows = 0;
  int columns = 0;
  const bool done = Run([&](char** message) {
    return sqlite3_get_table(handle_, sql.c_str(), &cells, &rows, &columns, message);
  });
  ResultTable table(cells, rows, columns);
  if (!done) return std::nullopt;
  return table;
}

bool Connection::Execute(const std::string& sql) {
  return Run([&](char** message) {
    return sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, message);
  });
}

int Connection::ChangedRows() const { return sqlite3_changes(handle_); }

Changes Connection::ExecuteTogether(std::span<const std::string> statements,
                                    const Companions& companions) {
  Changes changes;
  std::vector<std::string> failures;
  Paced([&] { changes = Transact(statements, companions, failures); });
  for (const std::string& failure : failures) report_(failure);
  return changes;
}

// The transaction takes the write lock at its beginning, where it can still wait for another
// program. After a rollback by SQLite it begins again with the next statement.
Changes Connection::Transact(std::span<const std::string> statements, const Companions& companions,
                             std::vector<std::string>& failures) {
  Changes changes;
  BoundStatement companion(handle_, companions.sql);
  for (std::size_t i = 0; i < statements.size(); ++i) {
    if (sqlite3_get_autocommit(handle_) != 0) {
      changes = {0, changes.failed + changes.rows};
      if (!Step("Begin Immediate", failures)) return {0, static_cast<int>(statements.size())};
    }
    if (Step(statements[i].c_str(), failures)) {
      changes.rows += sqlite3_changes(handle_);
      if (sqlite3_changes(handle_) == 1) {
        changes.inserted.push_back(static_cast<int>(sqlite3_last_insert_rowid(handle_)));
        const bool isAlone = i >= companions.texts.size() || companions.texts[i].empty();
        if (!isAlone && !companion.Run(changes.inserted.back(), companions.texts[i])) {
          failures.emplace_back(sqlite3_errmsg(handle_));
        }
      }
    } else {
      ++changes.failed;
    }
  }
  if (sqlite3_get_autocommit(handle_) == 0) {
    if (Step("Commit", failures)) return changes;
    Step("Rollback", failures);
  }
  return {0, changes.failed + changes.rows};
}

bool Connection::Step(const char* sql, std::vector<std::string>& failures) {
  if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) == SQLITE_OK) return true;
  failures.emplace_back(sqlite3_errmsg(handle_));
  return false;
}

bool MeansLocked(std::string_view message) { return message == sqlite3_errstr(SQLITE_BUSY); }

std::optional<ResultTable> QueryOnce(Store& store, const std::string& sql) {
  Connection connection(store);
  if (!connection) return std::nullopt;
  return connection.Query(sql);
}

bool ExecuteOnce(Store& store, const std::string& sql) {
  Connection connection(store);
  return connection && connection.Execute(sql);
}

bool HasRows(Store& store, const std::string& sql) {
  const auto table = QueryOnce(store, sql);
  return table && table->Rows() > 0;
}

bool ExecuteEach(Store& store, std::initializer_list<std::string> statements) {
  Connection connection(store);
  if (!connection) return false;
  bool all = true;
  for (const std::string& statement : statements) all = connection.Execute(statement) && all;
  return all;
}

std::optional<int> QueryNumber(Connection& connection, const std::string& sql) {
  if (!connection) return std::nullopt;
  const auto table = connection.Query(sql);
  if (!table) return std::nullopt;
  return table->Rows() > 0 ? table->Int(0, 0) : 0;
}

bool HasTable(Connection& connection, const std::string& name) {
  return QueryNumber(connection,
                     "Select count(*) From sqlite_master Where type = 'table' And name = '" + name +
                         "'") == 1;
}

int QueryNumber(Store& store, const std::string& sql, int failure) {
  Connection connection(store);
  return QueryNumber(connection, sql).value_or(failure);
}

}  // namespace feedloom
