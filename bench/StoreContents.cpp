#include "bench/StoreContents.h"

#include <fmt/core.h>

#include "store/StoreKit.h"

namespace feedloom {

void FillStore(const TestStore& store, int folders, int channels, int posts) {
  const std::string counter =
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < {}) ";
  store.Sql(
      fmt::format(fmt::runtime("insert into TB_FOLDER(folder_id, folder_name, folder_order) " +
                               counter + "select i, 'Folder ' || i, i from n"),
                  folders));
  store.Sql(fmt::format(
      fmt::runtime(
          "insert into TB_CHANNEL(channel_id, channel_folderID, channel_title, "
          "channel_xmllink, channel_htmllink, channel_order) " +
          counter +
          "select i, 1 + i % {}, 'Channel number ' || i, 'http://site.example/feed/' || i, "
          "'http://site.example/' || i, i from n"),
      channels, folders));
  store.Sql(fmt::format(
      fmt::runtime(
          "insert into TB_POST(post_channelID, post_title, post_link, post_pubDate, post_desc, "
          "post_readStatus) " +
          counter +
          "select 1 + i % {}, substr(printf('%05d ', i * 7919 % 100000) || 'The river rose two "
          "metres in one night and the old bridge stood in the water', 1, 40 + i % 41), "
          "printf('http://site.example/articles/2008/06/%023d', i), datetime(1212000000 - i * 61, "
          "'unixepoch'), substr(replace(hex(zeroblob(5)), '0', 'All that night the people of the "
          "village sat on the hill, and '), 1, 392) || printf('%08d', i), i % 3 = 0 from n"),
      posts, channels));
}

}  // namespace feedloom
