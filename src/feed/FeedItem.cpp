#include "feed/FeedItem.h"

namespace feedloom {

bool CompleteItem(FeedItem& item, const FeedReading& /*reading*/) {
  return !item.title.empty() && !item.link.empty();
}

}  // namespace feedloom
