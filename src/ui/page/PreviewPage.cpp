#include <fmt/format.h>

#include <cstddef>
#include <iterator>
#include <numeric>
#include <utility>

#include "text/Text.h"
#include "ui/page/EscapedText.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

// One post of a page: the values of the templates below.
struct PagePost {
  std::size_t number;
  std::string_view title;
  std::string_view link;
  std::string_view description;
  std::string_view date;
  std::string_view feedUrl;  // empty: no button to add the feed
  PageCredits credits;
};

// {0} the charset
constexpr char kHead[] =
    R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN">)"
    R"(<html><head><title>Feedloom</title>)"
    R"(<meta http-equiv="Content-Type" content="text/html; charset={0}"></head>)"
    R"(<body style='margin-top:0px;margin-left:0px;margin-right:0px;margin-bottom:0px'>)"
    R"(<table width="100%" border="0" cellpadding="0" cellspacing="0">)";

// {0} the number, {1} the title bar's image, {2} the title
constexpr char kTitleCell[] =
    R"(<tr><td height="33" background="{1}">)"
    R"(<table width="100%" border="0" cellspacing="0" cellpadding="0"><tr>)"
    R"(<td><div id="title-{0}" align="center"><strong><font color="#333333" size="2">{2})"
    R"(</font></strong></div></td>)";

// {0} the number, {1} the button's image, {2} its tooltip, {3} the feed URL
constexpr char kAddCells[] =
    R"(<td width="18"><a href="ID_BTN_RSSADD?{0}"><img src="{1}" name="ID_BTN_RSSADD" alt="{2}")"
    R"( width="18" height="33" border="0"></a></td>)"
    R"(<td width="0"><div id="rsspath-{0}" title="{3}"></div></td>)";

// {0} the number, {1} the button's image, {2} its tooltip, {3} the link
constexpr char kScrapCells[] =
    R"(<td width="18"><a href="ID_BTN_RSSSCRAP?{0}"><img src="{1}" name="ID_BTN_RSSSCRAP" alt="{2}")"
    R"( width="18" height="33" border="0"></a></td>)"
    R"(<td width="11"><div id="scraplink-{0}" title="{3}"></div></td>)";

// {0} the number, {1} the description
constexpr char kDescriptionRow[] =
    R"(<tr><td><table width="80%" border="0" align="center" cellpadding="0" cellspacing="0"><tr>)"
    R"(<td><div id="disc-{0}" align="left"><font color="#575757" size="2">{1})"
    R"(</font><strong><br></strong></div></td></tr></table></td></tr>)";

// {0} the kind, {1} the number, {2} the names
constexpr char kCreditsRow[] =
    R"(<tr><td><table width="80%" border="0" align="center" cellpadding="0" cellspacing="0"><tr>)"
    R"(<td><div id="{0}-{1}" align="left"><font color="#999999" size="2">{2}</font></div></td></tr>)"
    R"(</table></td></tr>)";

// {0} the bottom bar's image
constexpr char kBottomBar[] =
    R"(<tr><td>&nbsp;</td></tr><tr>)"
    R"(<td height="29" background="{0}">)"
    R"(<table width="80%" border="0" align="left" cellpadding="0" cellspacing="0">)";

constexpr char kTail[] = "</table></body></html>";

// The parts in which the two kinds of preview page differ.
struct PreviewShape {
  // The title bar's cell before the save button, and the rows below the bar: {0} the number, {1}
  // the date.
  std::string_view beforeScrapButton;
  std::string_view afterTitleBar;
  std::string_view belowAuthors;
  // The cells of the bottom bar: {0} the link, {1} the save icon.
  std::string_view bottomCells;
};

// The date is invisible, in an attribute. The link's anchor has no end tag; browsers close it.
constexpr PreviewShape kPostShape = {
    R"(<td width="10"><div id="pubdate-{0}" title="{1}"></div></td>)", R"(</tr></table></td></tr>)",
    R"(<tr><td>&nbsp;</td></tr>)",
    R"(<tr><td width="10"></td><td><a href="{0}"><font color="#999999" size="2">{0})"
    R"(</font></td></tr></table></td></tr>)"};

constexpr PreviewShape kPodcastShape = {
    R"(<td width="18">&nbsp;</td>)",
    R"(</tr></table></td></tr>)"
    R"(<tr><td><table width="95%" border="0" align="center" cellpadding="0" cellspacing="0">)"
    R"(<tr><td><div id="pubdate-{0}" align="left"><font color="#B2B2B2" size="2">{1})"
    R"(</font><strong><br></strong></div></td></tr></table></td></tr>)",
    "",
    R"(<tr><td width="20">&nbsp;</td><td width="16"><a href="{0}">)"
    R"(<img src="{1}" width="16" height="29" border="0"></a></td><td width="10">&nbsp;</td>)"
    R"(<td><font color="#999999" size="2"><a href="{0}">{0}</a></font></td></tr></table></td></tr>)"};

void AppendCredits(std::string& page, std::string_view kind, std::size_t number,
                   std::string_view names) {
  if (names.empty()) return;
  fmt::format_to(std::back_inserter(page), kCreditsRow, kind, number,
                 EscapedText(ReplaceAll(names, "\n", ", ")));
}

void AppendPost(std::string& page, const PreviewShape& shape, const PagePost& post,
                const PageSkin& skin) {
  const auto out = std::back_inserter(page);
  fmt::format_to(out, kTitleCell, post.number, skin.titleImage, post.title);
  if (!post.feedUrl.empty()) {
    fmt::format_to(out, kAddCells, post.number, skin.addButtonImage, skin.addTooltip, post.feedUrl);
  }
  fmt::format_to(out, fmt::runtime(shape.beforeScrapButton), post.number, post.date);
  fmt::format_to(out, kScrapCells, post.number, skin.scrapButtonImage, skin.scrapTooltip,
                 post.link);
  fmt::format_to(out, fmt::runtime(shape.afterTitleBar), post.number, post.date);
  AppendCredits(page, "author", post.number, post.credits.authors);
  page += shape.belowAuthors;
  fmt::format_to(out, kDescriptionRow, post.number, post.description);
  AppendCredits(page, "category", post.number, post.credits.categories);
  fmt::format_to(out, kBottomBar, skin.bottomImage);
  fmt::format_to(out, fmt::runtime(shape.bottomCells), post.link, skin.saveImage);
}

// The size of all texts, in bytes. Reserving it makes a page of long descriptions many times
// faster.
std::size_t SizeOf(const PageTexts& texts) {
  return std::accumulate(
      texts.begin(), texts.end(), std::size_t{0},
      [](std::size_t sum, const std::string& text) { return sum + text.size(); });
}

std::string_view TextAt(const PageTexts& texts, std::size_t index) {
  return index < texts.size() ? std::string_view(texts[index]) : std::string_view();
}

std::string BuildPreviewPage(const PreviewShape& shape, int count, const PageTexts& titles,
                             const PageTexts& links, const PageTexts& descriptions,
                             const PageTexts& dates, const PageTexts& feedUrls, bool showAdd,
                             const PageSkin& skin, std::string_view charset,
                             const std::vector<PageCredits>& credits) {
  for (const PageTexts* texts : {&titles, &links, &descriptions}) {
    if (std::cmp_not_equal(texts->size(), count)) return {};
  }
  std::string page;
  page.reserve(SizeOf(titles) + 3 * SizeOf(links) + SizeOf(descriptions) + 4096);
  fmt::format_to(std::back_inserter(page), kHead, charset);
  for (std::size_t i = 0; i < titles.size(); ++i) {
    const std::string_view feedUrl = showAdd ? TextAt(feedUrls, i) : std::string_view();
    AppendPost(page, shape,
               {i, titles[i], links[i], descriptions[i], TextAt(dates, i), feedUrl,
                i < credits.size() ? credits[i] : PageCredits()},
               skin);
  }
  return page += kTail;
}

}  // namespace

std::string_view PageCharset(CodePage codePage) {
  return codePage == CodePage::Utf8() ? "utf-8" : "euc-kr";
}

std::string BuildPostPreviewPage(int count, const PageTexts& titles, const PageTexts& links,
                                 const PageTexts& descriptions, const PageTexts& dates,
                                 const PageTexts& feedUrls, bool showAdd, const PageSkin& skin,
                                 std::string_view charset,
                                 const std::vector<PageCredits>& credits) {
  return BuildPreviewPage(kPostShape, count, titles, links, descriptions, dates, feedUrls, showAdd,
                          skin, charset, credits);
}

std::string BuildPodcastPreviewPage(int count, const PageTexts& titles, const PageTexts& links,
                                    const PageTexts& descriptions, const PageTexts& dates,
                                    const PageTexts& feedUrls, bool showAdd, const PageSkin& skin,
                                    std::string_view charset,
                                    const std::vector<PageCredits>& credits) {
  return BuildPreviewPage(kPodcastShape, count, titles, links, descriptions, dates, feedUrls,
                          showAdd, skin, charset, credits);
}

}  // namespace feedloom
