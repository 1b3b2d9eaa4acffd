#include "store/PostDetails.h"

#include "store/SqlText.h"

namespace feedloom {

bool KeepsPostDetails(Connection& connection) { return HasTable(connection, "TB_POST_DETAIL"); }

Companions DetailsOf(const std::vector<const NewPost*>& posts) {
  Companions companions{
      "Insert Or Ignore Into TB_POST_DETAIL(post_detail_postID, post_detail_authors, "
      "post_detail_categories) Values(?1, ?2, ?3)"};
  for (const NewPost* const post : posts) {
    const auto& [authors, categories] = post->details;
    companions.texts.emplace_back();
    if (post->details.AreEmpty()) continue;
    companions.texts.back() = {UnescapeEntities(authors), UnescapeEntities(categories)};
  }
  return companions;
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
  return {table->Text(0, 0), table->Text(0, 1)};
}

}  // namespace feedloom
