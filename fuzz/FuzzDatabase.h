// A real database file with a few rows, which can be read without the store.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "fuzz/FuzzKit.h"
#include "store/Store.h"

namespace feedloom {

// The texts of a row, in the order of FuzzDatabase's columns, without the id.
using StoredRowTexts = std::vector<std::string>;
// All rows of all tables, by table name and id.
using StoredRows = std::map<std::string, std::map<int, StoredRowTexts>>;

// The first rows: two folders, two channels in the first folder, two posts in each channel, two
// cabinets, two saved posts in the first cabinet. Ids start at 1.
//
// Columns: TB_FOLDER name, order; TB_CHANNEL folder, title, xmllink, htmllink, type, order, state;
// TB_POST channel, title, link, pubDate, desc, ispodcast, readStatus; TB_SCRAP_CHANNEL title,
// order; TB_SCRAP_POST cabinet, title, link, pubDate, desc, readStatus.
class FuzzDatabase {
 public:
  FuzzDatabase();

  // Restores the first rows and sets the number of reports to 0.
  void Reset();

  Store& StoreFor(CodePage codePage) { return codePage == CodePage::Utf8() ? utf8_ : korean_; }
  // The number of failures that the store has reported since Reset.
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

// Prints one row per line, for RequireEqual.
std::string Listed(const StoredRows& rows);

}  // namespace feedloom
