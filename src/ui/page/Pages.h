// The HTML pages that the module generates for posts. All texts are in the module's code page and
// go into the page as they are, markup included: whoever shows a page keeps its scripts from
// running.
//
// A preview page names its parts for the click handler. For post number N, counted from 0, the div
// elements "title-N", "disc-N", "pubdate-N", "scraplink-N" and "rsspath-N" hold its title,
// description, date, link and feed URL, in the "title" attribute where the value is not shown; the
// buttons are links to "ID_BTN_RSSSCRAP?N" (save the post) and "ID_BTN_RSSADD?N" (add its feed).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "ui/page/PageSkin.h"

namespace feedloom {

using PageTexts = std::vector<std::string>;

// The name for the pages' charset: "euc-kr" or "utf-8".
std::string_view PageCharset(CodePage codePage);

// The preview page of `count` posts, post i made of the i-th texts of the lists. Empty unless
// titles, links and descriptions hold `count` texts each; missing dates and feed URLs are empty
// texts. The button that adds a post's feed appears when `showAdd` is set and the feed URL is not
// empty.
std::string BuildPostPreviewPage(int count, const PageTexts& titles, const PageTexts& links,
                                 const PageTexts& descriptions, const PageTexts& dates,
                                 const PageTexts& feedUrls, bool showAdd, const PageSkin& skin,
                                 std::string_view charset);

// The same for podcast posts: the date is in view, and an icon and the link lead to the media file.
std::string BuildPodcastPreviewPage(int count, const PageTexts& titles, const PageTexts& links,
                                    const PageTexts& descriptions, const PageTexts& dates,
                                    const PageTexts& feedUrls, bool showAdd, const PageSkin& skin,
                                    std::string_view charset);

// The page that plays the media file at `link`. Only the link appears in it.
std::string BuildPodcastPlayerPage(std::string_view title, std::string_view link,
                                   std::string_view description, std::string_view date,
                                   const PageSkin& skin);

// The page that stands for one which could not be shown to its end: what has happened, and a link
// that opens `address` again. All are UTF-8, the texts plain.
std::string BuildCrashPage(std::string_view whatHappened, std::string_view again,
                           std::string_view address);

}  // namespace feedloom
