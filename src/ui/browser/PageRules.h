// What generated pages may do, as pure functions of addresses and texts; any thread. A post's
// description is hostile: in a generated page no script runs, no frame loads except the player's,
// and of the local files only those of the skin are read.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

namespace feedloom {

// The URL scheme of generated pages and of the skin's files:
// feedloom://page/page:<number>/<any path>?feedloom=<origin> and feedloom://page/<absolute path of
// a skin file>. Hosts with a number behind "page" name the same pages: the engine runs a renderer
// process for each host. Any other path or host is that of a relative link in a post
// (PostAddresses.h).
inline constexpr char kPageScheme[] = "feedloom";
// The query of a page's address; its value is the origin of the page's source, or nothing.
inline constexpr char kPageQuery[] = "feedloom";

// The address of a page with an empty path behind its number.
QUrl GeneratedPageUrl(int number);
QUrl SkinFileUrl(const QString& path);
// `url` with the host of the number `host`; 0 is the usual host.
QUrl AtHost(QUrl url, int host);
bool IsGenerated(const QUrl& url);

bool IsPageHost(const QUrl& url);

// The number in the address of a generated page; none for any other address.
std::optional<int> PageNumber(const QUrl& url);
// The number that the path of `url` begins with: a page's own, or a relative link's in that page.
std::optional<int> NumberInPath(const QUrl& url);
// `url` without what the address of a generated page adds to a path.
QUrl WithoutPage(QUrl url);

// Returns the skin's directory, which the host may change at any time.
using SkinDirectory = std::function<QString()>;

// The path of the skin file that `url` names, if the file exists and lies in `skinDir` after all
// symbolic links and ".." have been resolved; empty otherwise.
QString SkinFile(const QUrl& url, const QString& skinDir);

// Post: the preview of a post. Podcast: the preview of a post with a media file. Player: plays such
// a file. Crash: replaces a page whose renderer process has ended.
enum class PageKind { Post, Podcast, Player, Crash };

// How a page of a post looks.
struct PageStyle {
  QString sheet = {};   // the absolute path of a style sheet; empty for none
  QString font = {};    // the family of the window's texts: `var(--interface)` in the sheet
  QString source = {};  // the channel or cabinet of the post: `var(--source)`
};

// `html` with the Content Security Policy of its kind as the first element of the head, or at the
// beginning when there is no "<head>". The policy is needed although scripts are disabled, because
// they are enabled again while a navigation to a web page is pending. Unless `showsRemoteImages`,
// only the skin's images are shown, since a remote image tells its author who reads. The style
// follows, except in the player's page; no other style sheet counts.
QByteArray WithHead(const QByteArray& html, PageKind kind, bool showsRemoteImages,
                    const PageStyle& style);

}  // namespace feedloom
