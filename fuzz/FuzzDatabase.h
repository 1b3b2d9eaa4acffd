// A real database file with a few rows, and a look at all of them past the store.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "fuzz/FuzzKit.h"
#include "store/Store.h"

namespace feedloom {

// A row as texts, in the order of FuzzDatabase's columns without the id.
using StoredRowTexts = std::vector<std::string>;
// All rows of all tables: by the table's name, then by id.
using StoredRows = std::map<std::string, std::map<int, StoredRowTexts>>;

// Two folders, with two channels in the first; two posts a channel; two cabinets, with two saved
// posts in the first. Ids count from 1.
//
// Columns: TB_FOLDER name, order; TB_CHANNEL folder, title, xmllink, htmllink, type, order, state;
// TB_POST channel, title, link, pubDate, desc, ispodcast, readStatus; TB_SCRAP_CHANNEL title,
// order; TB_SCRAP_POST cabinet, title, link, pubDate, desc, readStatus.
class FuzzDatabase {
 public:
  FuzzDatabase();

  // Puts the file back to its first rows, and forgets the reports.
  void Reset();

  Store& StoreFor(CodePage codePage) { return codePage == CodePage::Utf8() ? utf8_ : korean_; }
  // What the store has complained of since.
  int Reports() const { return reports_; }

  const StoredRows& FirstRows() const { return firstRows_; }
  StoredRows Rows() const;

 private:
  const std::string path_;
  StandingClock clock_;
  int reports_ = 0;
  Store korean_;
  Store utf8_;
  std::string firstBytes_;
  StoredRows firstRows_;
};

// For RequireEqual: a row a line.
std::string Listed(const StoredRows& rows);

}  // namespace feedloom
