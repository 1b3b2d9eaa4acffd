#include "store/TextIndex.h"

#include <fmt/ranges.h>

#include <string>
#include <vector>

#include "search/Terms.h"
#include "store/Connection.h"
#include "store/WaitingTexts.h"

namespace feedloom {
namespace {

constexpr int kTextsAtOnce = 100;
constexpr int kMostGone = 20'000;  // so many do no harm in a small index either

// SQL that is true for the row of TB_TEXT_TODO of this text, unless the text has changed since.
std::string IsStill(const WaitingText& text) {
  return fmt::format("text_todo_isSaved = {:d} and text_todo_postID = {} and text_todo_change = {}",
                     text.isSaved, text.postId, text.change);
}

// The terms have no quotes.
std::vector<std::string> StatementsFor(const WaitingText& text) {
  const char* const source = text.isSaved ? "1, scrap_post_id, scrap_post_scrapChannelID, "
                                            "scrap_post_pubDate From TB_TEXT_TODO Join "
                                            "TB_SCRAP_POST On scrap_post_id = text_todo_postID"
                                          : "0, post_id, post_channelID, post_pubDate From "
                                            "TB_TEXT_TODO Join TB_POST On post_id = "
                                            "text_todo_postID";
  const std::string isStill = IsStill(text);
  return {
      fmt::format("Insert Or Replace Into TB_TEXT_DOC(text_doc_isSaved, text_doc_postID, "
                  "text_doc_ownerID, text_doc_published) Select {} Where {}",
                  source, isStill),
      fmt::format("Insert Into TB_TEXT_INDEX(rowid, terms) Select text_doc, '{}' From TB_TEXT_DOC "
                  "Join TB_TEXT_TODO On text_doc_postID = text_todo_postID and text_doc_isSaved = "
                  "text_todo_isSaved Where {}",
                  IndexTerms(text.title, text.html), isStill),
      fmt::format("Delete From TB_TEXT_TODO Where {}", isStill)};
}

bool HasMostlyGoneTexts(Connection& connection) {
  const auto gone = QueryNumber(
      connection,
      "Select ifnull((Select seq From sqlite_sequence Where name = 'TB_TEXT_DOC'), 0) - count(*) - "
      "max(count(*), " +
          std::to_string(kMostGone) + ") From TB_TEXT_DOC");
  return gone.value_or(0) > 0;
}

bool HasIndex(Connection& connection) { return HasTable(connection, "TB_TEXT_INDEX"); }

// Runs them all or, when one fails, none.
bool ExecuteAll(Connection& connection, const std::vector<std::string>& statements) {
  return connection.Execute(fmt::format("Begin Immediate; {}; Commit", fmt::join(statements, ";")));
}

bool Empty(Connection& connection) {
  return ExecuteAll(
      connection,
      {"Insert Into TB_TEXT_INDEX(TB_TEXT_INDEX) Values('delete-all')", "Delete From TB_TEXT_DOC",
       "Delete From sqlite_sequence Where name = 'TB_TEXT_DOC'", "Delete From TB_TEXT_TODO",
       "Insert Into TB_TEXT_TODO Select 0, post_id, 0 From TB_POST",
       "Insert Into TB_TEXT_TODO Select 1, scrap_post_id, 0 From "
       "TB_SCRAP_POST"});
}

}  // namespace

bool KeepsTextIndex(Store& store) {
  Connection connection(store);
  return connection && HasIndex(connection);
}

std::optional<IndexState> ReadIndexState(Store& store) {
  Connection connection(store);
  if (!connection) return std::nullopt;
  const Connection::Operation operation(connection);
  if (!HasIndex(connection)) return std::nullopt;
  const auto indexed = QueryNumber(connection, "Select count(*) From TB_TEXT_DOC");
  const auto waiting = QueryNumber(connection, "Select count(*) From TB_TEXT_TODO");
  if (!indexed || !waiting) return std::nullopt;
  return IndexState{*indexed, *waiting};
}

std::optional<int> IndexSomeTexts(Store& store) {
  Connection connection(store);
  if (!connection) return std::nullopt;
  const Connection::Operation operation(connection);
  if (!HasIndex(connection)) return 0;
  auto texts = ReadWaitingTexts(connection, store.TextCodePage(), kTextsAtOnce);
  if (texts && texts->empty() && HasMostlyGoneTexts(connection)) {
    if (!Empty(connection)) return std::nullopt;
    texts = ReadWaitingTexts(connection, store.TextCodePage(), kTextsAtOnce);
  }
  if (!texts) return std::nullopt;
  std::vector<std::string> statements;
  for (const WaitingText& text : *texts) {
    for (std::string& statement : StatementsFor(text)) statements.push_back(std::move(statement));
  }
  if (!statements.empty() && !ExecuteAll(connection, statements)) return std::nullopt;
  return static_cast<int>(texts->size());
}

bool EmptyTextIndex(Store& store) {
  Connection connection(store);
  return connection && HasIndex(connection) && Empty(connection);
}

}  // namespace feedloom
