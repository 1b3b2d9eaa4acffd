// Runs the SQL statements of the store's operations.
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "store/Store.h"

struct sqlite3;

namespace feedloom {

// The rows that a statement returned, as texts.
class ResultTable {
 public:
  // Takes ownership of `cells`, the result of sqlite3_get_table: `columns` names, then the cells
  // row by row.
  ResultTable(char** cells, int rows, int columns)
      : cells_(cells), rows_(rows), columns_(columns) {}

  int Rows() const { return rows_; }
  // The cell of a row and a column, both counted from 0. NULL is an empty text and 0.
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

// What a series of statements has changed.
struct Changes {
  int rows = 0;    // inserted, updated or deleted, and committed
  int failed = 0;  // statements that failed or were not run, or whose rows were lost again
  std::vector<int> inserted{};  // when the statements insert one row each: the ids of those rows
};

// Rows that come with those that statements insert, in the same transaction. They count nowhere,
// and when one fails, which is reported, the row that it comes with stays.
struct Companions {
  std::string sql = {};  // inserts one; ?1 is the inserted row's id, ?2 and the next are texts
  std::vector<std::vector<std::string>> texts = {};  // for each statement; empty: no companion
};

// A connection to the database. An object belongs to one thread.
class Connection {
 public:
  // Opens the database of `store`, which must outlive the object. When that fails, reports "Can't
  // open database", and the object converts to false. `report` gets all failures, when it is given,
  // in place of the store's report.
  explicit Connection(Store& store, ErrorReport report = nullptr);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  explicit operator bool() const { return open_; }

  // Run `sql`, one or more complete statements, under the store's lock and with the store's pauses
  // before and after. A failure is reported with SQLite's message and not retried; Query then
  // returns none and Execute false.
  std::optional<ResultTable> Query(const std::string& sql);
  bool Execute(const std::string& sql);

  // How many rows the last INSERT, UPDATE or DELETE that succeeded has changed.
  int ChangedRows() const;

  // Runs each of `statements` (complete ones) even after one has failed, together as one
  // transaction under one hold of the store's lock. Failures are reported behind the last one. When
  // SQLite rolls the transaction back by itself (a full disk), the rows so far are lost.
  Changes ExecuteTogether(std::span<const std::string> statements,
                          const Companions& companions = {});

  // While the object lives, the statements of `connection` are one operation: the store's pauses
  // come once, before the first statement and behind the last one.
  class Operation {
   public:
    enum class Pauses { Kept, LeftOut };
    // The pauses may be left out for a single look-up by a key, which takes nobody's time.
    explicit Operation(Connection& connection, Pauses pauses = Pauses::Kept);
    ~Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

   private:
    Connection& connection_;
    const Pauses pauses_;
  };

 private:
  template <typename Statements>
  void Paced(Statements statements);
  template <typename Statement>
  bool Run(Statement statement);
  Changes Transact(std::span<const std::string> statements, const Companions& companions,
                   std::vector<std::string>& failures);
  bool Step(const char* sql, std::vector<std::string>& failures);

  Store& store_;
  const ErrorReport report_;
  sqlite3* handle_ = nullptr;
  bool open_ = false;
  bool inOperation_ = false;
};

// Whether a failure's message says that another program has locked the database.
bool MeansLocked(std::string_view message);

// Runs `sql` on a connection of its own and returns its rows; none after a failure, which is
// reported.
std::optional<ResultTable> QueryOnce(Store& store, const std::string& sql);

// Runs `sql` on a connection of its own. Returns false after a failure, which is reported.
bool ExecuteOnce(Store& store, const std::string& sql);

// Runs `sql` on a connection of its own. True when a row came back; false also after a failure.
bool HasRows(Store& store, const std::string& sql);

// Runs all `statements` on one connection, even after one of them has failed. Returns true when all
// succeeded.
bool ExecuteEach(Store& store, std::initializer_list<std::string> statements);

// Runs `sql` and returns the first cell of the first row as a number: 0 without a row, none after a
// failure.
std::optional<int> QueryNumber(Connection& connection, const std::string& sql);

// Whether the database has a table of this name; false also after a failure.
bool HasTable(Connection& connection, const std::string& name);

// Runs `sql` so on a connection of its own; returns `failure` after a failure.
int QueryNumber(Store& store, const std::string& sql, int failure);

}  // namespace feedloom
