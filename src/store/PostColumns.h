// Turns the result of a statement on posts into rows.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "store/Connection.h"
#include "store/Rows.h"

// Parts that the statements on posts share: the columns that AppendPosts reads, and the table of
// the containers, which has the posts' owners. They are macros, because only literals are joined by
// the compiler.
#define POST_COLUMNS                                                                \
  "post_readStatus, post_id, post_createDate, post_desc, post_link, post_pubDate, " \
  "post_title, post_updateDate, channel_title, post_ispodcast"
#define JOIN_CHANNELS "Join TB_CHANNEL On TB_POST.post_channelID = TB_CHANNEL.channel_id"
#define SCRAP_POST_COLUMNS                                                         \
  "scrap_post_readStatus, scrap_post_id, scrap_post_createDate, scrap_post_desc, " \
  "scrap_post_link, scrap_post_pubDate, scrap_post_title, scrap_post_updateDate, " \
  "scrap_channel_title"
#define JOIN_CABINETS                                                   \
  "Join TB_SCRAP_CHANNEL On TB_SCRAP_POST.scrap_post_scrapChannelID = " \
  "TB_SCRAP_CHANNEL.scrap_channel_id"

namespace feedloom {

// Where a statement's columns are: the nine that posts and saved posts share begin at `first`; the
// other two are in the result only when their number is set.
struct PostLayout {
  int first = 0;
  std::optional<int> podcast = std::nullopt;
  std::optional<int> ownerId = std::nullopt;
};

// Appends a row to `out` for each row of `table`.
void AppendPosts(const ResultTable& table, const PostLayout& layout, std::vector<PostRow>& out);

}  // namespace feedloom
