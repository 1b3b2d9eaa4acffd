#include "fuzz/FuzzDatabase.h"

#include <sqlite3.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

namespace feedloom {
namespace {

constexpr std::pair<const char*, const char*> kTables[] = {
    {"TB_FOLDER", "folder_id, folder_name, folder_order"},
    {"TB_CHANNEL",
     "channel_id, channel_folderID, channel_title, channel_xmllink, channel_htmllink, "
     "channel_type, channel_order, channel_state"},
    {"TB_POST",
     "post_id, post_channelID, post_title, post_link, post_pubDate, post_desc, post_ispodcast, "
     "post_readStatus"},
    {"TB_SCRAP_CHANNEL", "scrap_channel_id, scrap_channel_title, scrap_channel_order"},
    {"TB_SCRAP_POST",
     "scrap_post_id, scrap_post_scrapChannelID, scrap_post_title, scrap_post_link, "
     "scrap_post_pubDate, scrap_post_desc, scrap_post_readStatus"}};

constexpr char kFirstRows[] =
    "insert into TB_FOLDER values (1, 'F1', 0), (2, 'F2', 1);"
    "insert into TB_CHANNEL(channel_folderID, channel_title, channel_xmllink, channel_htmllink, "
    "channel_type, channel_order) values (1, 'C1', 'x1', 'h1', 'rss', 0), "
    "(1, 'C2', 'x2', 'h2', 'rss', 1);"
    "insert into TB_POST(post_channelID, post_title, post_link, post_pubDate, post_desc) values "
    "(1, 'P1', 'l1', '2008-05-01 10:00:00', 'd1'), (1, 'P2', 'l3', '2008-05-02 10:00:00', 'd2'), "
    "(2, 'P3', 'l1', '2008-05-03 10:00:00', 'd3'), (2, 'P4', 'l2', '', 'd4');"
    "insert into TB_SCRAP_CHANNEL(scrap_channel_title, scrap_channel_order) values ('S1', 0), "
    "('S2', 1);"
    "insert into TB_SCRAP_POST(scrap_post_scrapChannelID, scrap_post_title, scrap_post_link, "
    "scrap_post_pubDate, scrap_post_desc, scrap_post_readStatus) values "
    "(1, 'K1', 'l1', '', 'd1', 0), (1, 'K2', 'l2', '', 'd2', 1);";

class RawConnection {
 public:
  explicit RawConnection(const std::string& path) {
    Require(sqlite3_open(path.c_str(), &handle_) == SQLITE_OK, "the database can be opened");
  }
  ~RawConnection() { sqlite3_close(handle_); }
  RawConnection(const RawConnection&) = delete;
  RawConnection& operator=(const RawConnection&) = delete;

  void Run(const std::string& sql) {
    Require(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
            "the fuzzer's own statement succeeds");
  }

  std::map<int, StoredRowTexts> Rows(const std::string& sql) {
    std::map<int, StoredRowTexts> rows;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      StoredRowTexts& row = rows[sqlite3_column_int(statement, 0)];
      for (int column = 1; column < sqlite3_column_count(statement); ++column) {
        const auto* text = static_cast<const char*>(sqlite3_column_blob(statement, column));
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
        const bool isNull = sqlite3_column_type(statement, column) == SQLITE_NULL;
        row.push_back(isNull ? "NULL" : std::string(text, size));
      }
    }
    Require(sqlite3_finalize(statement) == SQLITE_OK, "the fuzzer can read the rows");
    return rows;
  }

 private:
  sqlite3* handle_ = nullptr;
};

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace

FuzzDatabase::FuzzDatabase()
    : path_(ScratchFolder() + "/rssdb"),
      korean_(path_, CodePage::Korean(), clock_, [this](std::string_view) { ++reports_; }),
      utf8_(path_, CodePage::Utf8(), clock_, [this](std::string_view) { ++reports_; }) {
  RawConnection(path_).Run(ReadBytes(FEEDLOOM_SCHEMA) + kFirstRows);
  firstBytes_ = ReadBytes(path_);
  firstRows_ = Rows();
}

void FuzzDatabase::Reset() {
  reports_ = 0;
  std::ofstream(path_, std::ios::binary) << firstBytes_;
}

StoredRows FuzzDatabase::Rows() const {
  StoredRows rows;
  RawConnection connection(path_);
  for (const auto& [table, columns] : kTables) {
    rows[table] = connection.Rows(std::string("select ") + columns + " from " + table);
  }
  return rows;
}

std::string Listed(const StoredRows& rows) {
  std::string list;
  for (const auto& [table, byId] : rows) {
    for (const auto& [id, row] : byId) {
      list.append(table).append(" ").append(std::to_string(id));
      for (const std::string& text : row) list.append(" | ").append(text);
      list += '\n';
    }
  }
  return list;
}

}  // namespace feedloom
