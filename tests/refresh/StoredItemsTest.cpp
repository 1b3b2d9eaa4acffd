// What the store makes of a feed's items.
#include "feed/FeedMarkup.h"
#include "kit/Rows.h"
#include "store/SqlText.h"

namespace feedloom {

TEST(FeedMarkup, MeansTheSameWhenItHasBeenStored) {
  ExpectRows(
      [](auto& html) { return UnescapeEntities(StorableMarkup(html)); },
      {"a&amp;lt;b&lt;&copy;&quot;& -> a&#x26;lt;b&#x3C;&copy;&#x22;&",
       "&#38;#60;&#38;#38;&#62;&#39;&apos;&#34; -> &#x26;#60;&#x26;#38;&#x3E;&#x27;&#x27;&#x22;"});
  EXPECT_EQ(UnescapeEntities(MarkupOfText("<&lt;\"'")), "&#x3C;&#x26;lt;&#x22;&#x27;");
}

}  // namespace feedloom
