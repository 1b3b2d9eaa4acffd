// Reads any bytes as a JSON Feed. Whatever is read can be stored, and is stored as it is.
#include "feed/JsonFeed.h"
#include "fuzz/FeedItemCheck.h"
#include "store/SqlText.h"

namespace feedloom {

void CheckInput(FuzzInput input) {
  const CodePage codePage = input.TakeCodePage();
  FeedReading reading(codePage, true);
  reading.address = "http://example.com/dir/feed.json?x";
  const MemoryFile document(input.Rest());
  const JsonFeed feed = ReadJsonFeed(document.Path(), reading, {.most = 1 << 20}, {});
  RequireValid(feed.header.title, codePage, "the title is in the module's code page");
  RequireValid(feed.header.link, codePage, "the link is in the module's code page");
  for (const FeedItem& item : feed.items) {
    CheckItem(item, codePage);
    RequireEqual(UnescapeEntities(item.description), item.description,
                 "storing changes nothing of a description");
  }
  if (feed.code == kParsed) {
    Require(LooksLikeJson(document.Path()), "a JSON Feed is recognised by its beginning");
  }
}

}  // namespace feedloom
