#include <fmt/format.h>

#include "ui/page/Pages.h"

namespace feedloom {
namespace {

// {0} the background image, {1} the media address. The page appends an "f" to the image, because
// skins name that file without its last letter. The inner row has no end tag.
constexpr char kPlayerPage[] =
    R"(<html><head></head>)"
    R"(<body style='margin-top:0px;margin-bottom:0px;margin-left:0px;margin-right:0px'>)"
    R"(<table cellpadding=0 cellspacing=0 bgcolor=black width=100% height=100%>)"
    R"(<tr>)"
    R"(<td align=center background="{0}f" style='color:white'>)"
    R"(<table cellpadding=0 cellspacing=0>)"
    R"(<tr>)"
    R"(<td width="42"><div align="center">)"
    R"(<embed src="{1}">)"
    R"(</div></td>)"
    R"(</table>)"
    R"(</td>)"
    R"(</tr>)"
    R"(</table>)"
    R"(</body></html>)";

}  // namespace

std::string BuildPodcastPlayerPage(std::string_view /*title*/, std::string_view link,
                                   std::string_view /*description*/, std::string_view /*date*/,
                                   const PageSkin& skin) {
  return fmt::format(kPlayerPage, skin.playerBackground, link);
}

}  // namespace feedloom
