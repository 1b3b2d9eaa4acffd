#include "feed/FeedItem.h"

#include "feed/PostTitle.h"

namespace feedloom {

bool CompleteItem(FeedItem& item, const FeedReading& reading) {
  if (item.title.empty() && reading.isLenient) item.title = MadeUpTitle(item, reading.codePage);
  return !item.title.empty() && !item.link.empty();
}

}  // namespace feedloom
