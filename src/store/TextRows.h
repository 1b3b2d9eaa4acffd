#pragma once

#include <functional>
#include <optional>
#include <string>

#include "search/TextQuery.h"
#include "store/Connection.h"
#include "store/RowKey.h"
#include "store/Rows.h"

namespace feedloom {

// Which posts are looked at for a search.
struct SearchedRows {
  std::optional<RowKey> within = std::nullopt;  // a row of the tree; none: posts and saved posts
  bool areUnreadOnly = false;

  // Whether posts, or saved posts, can be among them.
  bool HaveSaved(bool areSaved) const {
    return !within || HoldsScrapPosts(within->kind) == areSaved;
  }
};

// Takes a post that meets the query and its relevance, which is greater than 0.
using OnHit = std::function<void(PostRow post, int relevance)>;

// The name of the column with a post's, or a saved post's, number.
const char* IdColumn(bool areSaved);

// Reads the texts of posts and holds them against a query. An object belongs to one thread.
class TextRows {
 public:
  // All that is given must outlive the object; `connection` is open.
  TextRows(Connection& connection, const Store& store, const TextQuery& query,
           const SearchedRows& rows);

  // Reads the first posts, or saved posts, by their number, of which the SQL expression `condition`
  // is true, as many as one statement should read, and calls `onHit` for each that meets the query.
  // Returns the last one's number, 0 when there is none, and none after a failure, which is
  // reported.
  std::optional<int> Read(bool areSaved, const std::string& condition, const OnHit& onHit);

 private:
  std::string Statement(bool areSaved, const std::string& condition) const;

  Connection& connection_;
  const CodePage codePage_;
  const TextQuery& query_;
  const SearchedRows& rows_;
  const bool hasAuthors_;
};

}  // namespace feedloom
