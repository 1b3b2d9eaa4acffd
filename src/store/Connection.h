// How an operation of the store runs its statements.
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>

#include "store/Store.h"

struct sqlite3;

namespace feedloom {

// The rows that a statement returned, as texts.
class ResultTable {
 public:
  // Takes over `cells`, as sqlite3_get_table hands them out: `columns` names, then row after row.
  ResultTable(char** cells, int rows, int columns)
      : cells_(cells), rows_(rows), columns_(columns) {}

  int Rows() const { return rows_; }
  // A cell of data row `row` (from 0); NULL reads as an empty text and as 0.
  std::string Text(int row, int column) const;
  int Int(int row, int column) const;

 private:
  struct Free {
    void operator()(char** cells) const;
  };
  const char* Cell(int row, int column) const;

  std::unique_ptr<char*, Free> cells_;
  int rows_;
  int columns_;
};

// One connection to the database, for one operation on one thread.
class Connection {
 public:
  // Opens the database; when that fails, reports "Can't open database" and converts to false.
  explicit Connection(Store& store);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  explicit operator bool() const { return open_; }

  // Run `sql` (one or more statements, complete text) paced and under the store's lock. A failure
  // is reported with SQLite's message and not retried.
  std::optional<ResultTable> Query(const std::string& sql);
  bool Execute(const std::string& sql);

  // By the last statement that Execute ran with success: inserted, updated or deleted.
  int RowsChanged() const;

  // For a connection that is going to write many times: the rollback journal's file stays from one
  // statement to the next, until the connection ends, instead of being made and deleted for each.
  void KeepJournalFile();

 private:
  template <typename Statement>
  bool Run(Statement statement);
  void SetJournalMode(const char* pragma);

  Store& store_;
  sqlite3* handle_ = nullptr;
  bool open_ = false;
  bool keepsJournalFile_ = false;
};

// The rows of `sql`, run on a connection of its own; none after a (reported) failure.
std::optional<ResultTable> QueryOnce(Store& store, const std::string& sql);

// True when `sql`, run on a connection of its own, succeeded.
bool ExecuteOnce(Store& store, const std::string& sql);

// True when `sql` returned a row; false also after a failure.
bool HasRows(Store& store, const std::string& sql);

// Runs each of `statements` on one connection, the next one also when one before it failed; true
// when all succeeded.
bool ExecuteEach(Store& store, std::initializer_list<std::string> statements);

// The first cell of the first row of `sql` as a number: `failure` when it did not run, 0 when no
// row came back.
int QueryNumber(Store& store, const std::string& sql, int failure);

}  // namespace feedloom
