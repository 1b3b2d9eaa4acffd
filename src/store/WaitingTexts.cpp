#include "store/WaitingTexts.h"

#include <fmt/format.h>

namespace feedloom {

std::optional<std::vector<WaitingText>> ReadWaitingTexts(Connection& connection, CodePage codePage,
                                                         int most) {
  const auto rows = connection.Query(fmt::format(
      "Select text_todo_isSaved, text_todo_postID, text_todo_change, ifnull(post_title, "
      "scrap_post_title), ifnull(post_desc, scrap_post_desc) From (Select * From TB_TEXT_TODO "
      "Order "
      "By rowid Limit {}) Left Join TB_POST On text_todo_isSaved = 0 and post_id = "
      "text_todo_postID Left Join TB_SCRAP_POST On text_todo_isSaved = 1 and scrap_post_id = "
      "text_todo_postID",
      most));
  if (!rows) return std::nullopt;
  std::vector<WaitingText> texts;
  for (int row = 0; row < rows->Rows(); ++row) {
    texts.push_back({.isSaved = rows->Int(row, 0) != 0,
                     .postId = rows->Int(row, 1),
                     .change = rows->Text(row, 2),
                     .title = codePage.ToUtf8(rows->Text(row, 3)),
                     .html = codePage.ToUtf8(rows->Text(row, 4))});
  }
  return texts;
}

}  // namespace feedloom
