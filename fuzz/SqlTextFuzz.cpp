// Passes any texts to the store's operations. Written texts read back the same, with their entities
// decoded, and no other row changes. A text with a zero byte, which no document can contain, is
// rejected.
#include <algorithm>
#include <iterator>
#include <set>

#include "fuzz/FuzzDatabase.h"
#include "store/Cabinets.h"
#include "store/ChannelAdder.h"
#include "store/Channels.h"
#include "store/Connection.h"
#include "store/Folders.h"
#include "store/Like.h"
#include "store/Posts.h"
#include "store/Search.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

constexpr int kOne = 1;  // id of the first row of each table
constexpr int kTwo = 2;

struct Texts {
  std::string a;
  std::string b;
  std::string c;
};

// An operation of the store and its expected effect.
struct Operation {
  bool (*run)(Store& store, const Texts& texts);         // true when the store reports success
  void (*expect)(StoredRows& rows, const Texts& texts);  // applies the expected change
};

std::string Kept(const std::string& text) { return UnescapeEntities(text); }

bool HasText(const StoredRows& rows, const char* table, std::size_t column,
             const std::string& text) {
  return std::ranges::any_of(rows.at(table),
                             [&](const auto& row) { return row.second[column] == text; });
}

void Add(StoredRows& rows, const char* table, StoredRowTexts row) {
  auto& byId = rows[table];
  byId[byId.rbegin()->first + 1] = std::move(row);
}

// Operations that rename.

bool RenameAll(Store& store, const Texts& texts) {
  const bool isFolder = RenameFolder(store, kTwo, texts.a);
  const bool isChannel = RenameChannel(store, kTwo, texts.b);
  const bool isCabinet = RenameCabinet(store, kTwo, texts.c);
  return isFolder && isChannel && isCabinet;
}

void ExpectNames(StoredRows& rows, const Texts& texts) {
  rows["TB_FOLDER"][kTwo][0] = Kept(texts.a);
  rows["TB_CHANNEL"][kTwo][1] = Kept(texts.b);
  rows["TB_SCRAP_CHANNEL"][kTwo][0] = Kept(texts.c);
}

// Operations that add a container. They do nothing when its name or address is in use.

bool AddContainers(Store& store, const Texts& texts) {
  int order = 0;
  const bool isFolder = AppendFolder(store, texts.a, order) >= 0;
  const bool isCabinet = AddCabinet(store, texts.b, 5) >= 0;
  ChannelRecord record;
  record.folderId = kOne;
  record.title = texts.a;
  record.type = texts.b;
  record.xmlLink = texts.c;
  record.htmlLink = texts.b;
  return AppendChannelRecord(store, record) && isFolder && isCabinet;
}

void ExpectContainers(StoredRows& rows, const Texts& texts) {
  const std::string a = Kept(texts.a), b = Kept(texts.b), c = Kept(texts.c);
  if (!HasText(rows, "TB_FOLDER", 0, a)) Add(rows, "TB_FOLDER", {a, "2"});
  if (!HasText(rows, "TB_SCRAP_CHANNEL", 0, b)) Add(rows, "TB_SCRAP_CHANNEL", {b, "5"});
  if (HasText(rows, "TB_CHANNEL", 2, c)) return;
  Add(rows, "TB_CHANNEL", {"1", a, c, b, b, "2", "0"});
}

bool AddChannels(Store& store, const Texts& texts) {
  Connection connection(store);
  ChannelAdder adder(connection, kTwo);
  ChannelRecord records[2];
  for (ChannelRecord& record : records) {
    const bool isFirst = &record == records;
    record.title = isFirst ? texts.a : texts.b;
    record.xmlLink = isFirst ? texts.b : texts.a;
    record.htmlLink = texts.c;
  }
  return adder.Load() && adder.Add(records);
}

void ExpectChannels(StoredRows& rows, const Texts& texts) {
  const std::string a = Kept(texts.a), b = Kept(texts.b), c = Kept(texts.c);
  Add(rows, "TB_CHANNEL", {"2", a, b, c, "rss", "0", "0"});
  if (a != b) Add(rows, "TB_CHANNEL", {"2", b, a, c, "rss", "0", "0"});
}

// Operations on posts.

bool InsertPosts(Store& store, const Texts& texts) {
  ChannelRecord record;
  record.id = kTwo;
  record.posts = {{texts.a, texts.b, "", texts.c, 0},
                  {texts.b, texts.a, "2008-05-01 10:00:00", texts.c, 1},
                  {texts.c, texts.b, texts.a, texts.a, 0}};
  Connection connection(store);
  InsertChannelPosts(connection, record);
  return InsertScrapPost(store, kTwo, texts.a, texts.b, texts.c, texts.b) >= 0;
}

void ExpectPosts(StoredRows& rows, const Texts& texts) {
  const std::string a = Kept(texts.a), b = Kept(texts.b), c = Kept(texts.c);
  std::set<std::string> links = {"l1", "l2"};
  const auto insert = [&](const StoredRowTexts& row) {
    if (links.insert(row[2]).second) Add(rows, "TB_POST", row);
  };
  insert({"2", a, b, "", c, "0", "0"});
  insert({"2", b, a, "2008-05-01 10:00:00", c, "1", "0"});
  insert({"2", c, b, a, a, "0", "0"});
  Add(rows, "TB_SCRAP_POST", {"2", a, b, c, b, "0"});
}

constexpr Operation kOperations[] = {{RenameAll, ExpectNames},
                                     {AddContainers, ExpectContainers},
                                     {AddChannels, ExpectChannels},
                                     {InsertPosts, ExpectPosts}};

// Reads after the operation. One of the two only, because opening a connection is slow.

void CheckLookUps(Store& store, const StoredRows& rows, const std::string& text) {
  const std::string kept = Kept(text);
  int id = 0, order = 0;
  Require(FindFolderByName(store, text, id, order) == HasText(rows, "TB_FOLDER", 0, kept),
          "a folder is found by its whole name");
  Require(CabinetTitleExists(store, text) == HasText(rows, "TB_SCRAP_CHANNEL", 0, kept),
          "a cabinet is found by its whole title");
  const auto isInFolder = [&](std::size_t column) {
    return std::ranges::any_of(rows.at("TB_CHANNEL"), [&](const auto& row) {
      return row.second[0] == "2" && row.second[column] == kept;
    });
  };
  Require(ChannelTitleExists(store, text, kTwo) == isInFolder(1),
          "a channel is found by its whole title");
  Require(FindChannelByXmlLink(store, text, kTwo, id, order) == isInFolder(2),
          "a channel is found by its whole address");
}

// The posts that a search for the word must find. LikeFuzz checks like() itself.
void CheckSearch(Store& store, const StoredRows& rows, const std::string& word) {
  std::vector<PostRow> found;
  Require(SearchPosts(store, word, found), "a search succeeds");
  std::set<int> ids;
  for (const PostRow& post : found) {
    ids.insert(post.id);
    const StoredRowTexts& row = rows.at("TB_POST").at(post.id);
    Require(post.title == row[1] && post.link == row[2] && post.description == row[4],
            "a post reads as it is stored");
  }
  Require(ids.size() == found.size(), "no post is found twice");
  const std::string pattern = "%" + Kept(word) + "%";
  for (const auto& [id, row] : rows.at("TB_POST")) {
    Require(ids.contains(id) == LikeMatches(pattern, row[1], store.TextCodePage()),
            "a search finds the posts whose title has the word, and no other");
  }
  const auto isBefore = [](const PostRow& left, const PostRow& right) {
    return left.published > right.published ||
           (left.published == right.published && left.title < right.title);
  };
  Require(std::ranges::is_sorted(found, isBefore), "the newest post stands first");
}

bool HasZero(const Texts& texts) {
  return (texts.a + texts.b + texts.c).find('\0') != std::string::npos;
}

// Each row has its old texts or all new ones, never a part of them.
void CheckRefused(const StoredRows& actual, const StoredRows& before, const StoredRows& whole) {
  const auto holds = [](const StoredRows& rows, const std::string& table, const auto& texts) {
    return std::ranges::any_of(rows.at(table),
                               [&](const auto& row) { return row.second == texts; });
  };
  for (const auto& [table, rows] : actual) {
    for (const auto& row : rows) {
      Require(holds(before, table, row.second) || holds(whole, table, row.second),
              "a text with a zero byte is stored nowhere");
    }
  }
}

}  // namespace

void CheckInput(FuzzInput input) {
  static FuzzDatabase database;
  database.Reset();
  Store& store = database.StoreFor(input.TakeCodePage());
  const std::size_t choice = input.TakeByte();
  const Operation& operation = kOperations[choice % std::size(kOperations)];
  const Texts texts{input.TakeText(), input.TakeText(), input.TakeText()};

  StoredRows rows = database.FirstRows();
  const bool isDone = operation.run(store, texts);
  operation.expect(rows, texts);
  if (HasZero(texts)) {
    Require(!isDone && database.Reports() > 0, "a text with a zero byte is refused and reported");
    return CheckRefused(database.Rows(), database.FirstRows(), rows);
  }
  Require(isDone && database.Reports() == 0, "no text makes a statement fail");
  RequireEqual(Listed(database.Rows()), Listed(rows), "only what must change changes");
  const std::string word = input.TakeText();
  if (word.find('\0') != std::string::npos) return;
  choice / std::size(kOperations) % 2 == 0 ? CheckSearch(store, rows, word)
                                           : CheckLookUps(store, rows, word);
}

}  // namespace feedloom
