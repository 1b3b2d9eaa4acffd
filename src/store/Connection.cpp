#include "store/Connection.h"

#include <sqlite3.h>

#include <cstdlib>

#include "store/Like.h"

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

Connection::Connection(Store& store) : store_(store) {
  open_ = sqlite3_open(store.DbPath().c_str(), &handle_) == SQLITE_OK;
  if (!open_) {
    store.ReportStoreError("Can't open database");
    return;
  }
  sqlite3_create_function(handle_, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, &store, Like,
                          nullptr, nullptr);
}

Connection::~Connection() {
  if (keepsJournalFile_) SetJournalMode("PRAGMA journal_mode = DELETE");
  sqlite3_close(handle_);
}

void Connection::KeepJournalFile() {
  keepsJournalFile_ = true;
  SetJournalMode("PRAGMA journal_mode = PERSIST");
}

// A failure is not reported: the journal mode only saves time, and when the file itself is the
// reason, the next statement reports it.
void Connection::SetJournalMode(const char* pragma) {
  const MutexLock lock(store_.Lock());
  sqlite3_exec(handle_, pragma, nullptr, nullptr, nullptr);
}

template <typename Statement>
bool Connection::Run(Statement statement) {
  char* message = nullptr;
  int status = SQLITE_OK;
  store_.EnterStoreBusy();
  {
    const MutexLock lock(store_.Lock());
    status = statement(&message);
  }
  store_.LeaveStoreBusy();
  if (status == SQLITE_OK) return true;
  store_.ReportStoreError(message != nullptr ? message : sqlite3_errstr(status));
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

int Connection::RowsChanged() const { return sqlite3_changes(handle_); }

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

int QueryNumber(Store& store, const std::string& sql, int failure) {
  const auto table = QueryOnce(store, sql);
  if (!table) return failure;
  return table->Rows() > 0 ? table->Int(0, 0) : 0;
}

}  // namespace feedloom
