#include "store/PostDetails.h"

#include <fmt/format.h>

#include <sstream>

#include "store/SqlText.h"

namespace feedloom {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(std::move(line));
  return lines;
}

// The names for a place between single quotes in a statement.
std::string Joined(const std::vector<std::string>& names) {
  return EscapeSqlText(fmt::format("{}", fmt::join(names, "\n")));
}

}  // namespace

bool KeepsPostDetails(Connection& connection) { return HasTable(connection, "TB_POST_DETAIL"); }

std::string InsertDetailsStatement(int channelId, std::span<const NewPost* const> posts) {
  std::string values;
  for (const NewPost* const post : posts) {
    if (post->details.AreEmpty()) continue;
    values += values.empty() ? "" : ",";
    values += "('" + EscapeSqlText(post->link) + "','" + Joined(post->details.authors) + "','" +
              Joined(post->details.categories) + "')";
  }
  if (values.empty()) return "";
  return "Insert Or Ignore Into TB_POST_DETAIL(post_detail_postID, post_detail_authors, "
         "post_detail_categories) Select post_id, column2, column3 From (Values" +
         values + ") Cross Join TB_POST Where post_channelID = " + std::to_string(channelId) +
         " And post_link = column1;";
}

PostDetails FindPostDetails(Store& store, int postId, const std::string& link) {
  Connection connection(store);
  if (!connection) return {};
  const Connection::Operation operation(connection, Connection::Operation::Pauses::LeftOut);
  if (!KeepsPostDetails(connection)) return {};
  const auto table = connection.Query(
      FormatSql("Select post_detail_authors, post_detail_categories, post_link From TB_POST_DETAIL "
                "Join TB_POST On post_id = post_detail_postID Where post_id = %d",
                postId));
  if (!table || table->Rows() == 0 || table->Text(0, 2) != link) return {};
  return {Lines(table->Text(0, 0)), Lines(table->Text(0, 1))};
}

}  // namespace feedloom
