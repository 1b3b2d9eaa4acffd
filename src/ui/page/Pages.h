// The HTML pages that the module generates for posts; any thread. All texts are in the module's
// code page and are inserted without escaping, markup included: the browser must disable scripts
// when it shows such a page.
//
// The click handler finds the parts of a preview page by their ids. For post N, counted from 0, the
// div elements "title-N", "disc-N", "pubdate-N", "scraplink-N" and "rsspath-N" hold its title,
// description, date, link and feed URL; a value that is not visible is in the "title" attribute.
// The buttons are links to "ID_BTN_RSSSCRAP?N" (save the post) and "ID_BTN_RSSADD?N" (add its
// feed).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/CodePage.h"
#include "ui/page/PageSkin.h"

namespace feedloom {

using PageTexts = std::vector<std::string>;

// Who wrote a post, and what it is about: plain texts, a name a line, which are escaped in the
// page. Empty ones leave no trace in it.
struct PageCredits {
  std::string authors;
  std::string categories;
};

// The charset name of `codePage` for the pages: "euc-kr" or "utf-8".
std::string_view PageCharset(CodePage codePage);

// The preview page of `count` posts; post i has the i-th texts of the lists. Returns an empty text
// unless titles, links and descriptions hold `count` texts each. Missing dates and feed URLs count
// as empty. The button that adds a post's feed appears when `showAdd` is true and the feed URL is
// not empty. `charset` is one of PageCharset(). Authors stand below the title, in the element
// "author-N", and categories behind the description, in "category-N".
std::string BuildPostPreviewPage(int count, const PageTexts& titles, const PageTexts& links,
                                 const PageTexts& descriptions, const PageTexts& dates,
                                 const PageTexts& feedUrls, bool showAdd, const PageSkin& skin,
                                 std::string_view charset,
                                 const std::vector<PageCredits>& credits = {});

// Like BuildPostPreviewPage, for podcast posts: the date is visible, and an icon and the link lead
// to the media file.
std::string BuildPodcastPreviewPage(int count, const PageTexts& titles, const PageTexts& links,
                                    const PageTexts& descriptions, const PageTexts& dates,
                                    const PageTexts& feedUrls, bool showAdd, const PageSkin& skin,
                                    std::string_view charset,
                                    const std::vector<PageCredits>& credits = {});

// The page that plays the media file at `link`. The other texts do not appear in it.
std::string BuildPodcastPlayerPage(std::string_view title, std::string_view link,
                                   std::string_view description, std::string_view date,
                                   const PageSkin& skin);

// The page that replaces a crashed one: it says `whatHappened` and has a link with the text `again`
// to `address`. All texts are plain text in UTF-8, which is escaped here.
std::string BuildCrashPage(std::string_view whatHappened, std::string_view again,
                           std::string_view address);

}  // namespace feedloom
