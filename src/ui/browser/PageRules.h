// What generated pages may do, as pure functions of addresses and texts. A post's description is
// hostile: in a generated page no script runs, no frame loads, nothing but the skin's images is
// read from the machine.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

namespace feedloom {

// Generated pages, and the skin's files for them, have addresses of a scheme of their own:
// feedloom://page/<number>, feedloom://page/<absolute path of a skin file>. The host may be another
// one, for the same pages: each host has a process of the engine to itself.
inline constexpr char kPageScheme[] = "feedloom";

QUrl GeneratedPageUrl(int number);
QUrl SkinFileUrl(const QString& path);
// `url` at the host with this number; 0 is the usual one.
QUrl AtHost(QUrl url, int host);
bool IsGenerated(const QUrl& url);

// The number in the address of a generated page; none in any other address.
std::optional<int> PageNumber(const QUrl& url);

// Tells the skin's directory as it is now: the host may change it.
using SkinDirectory = std::function<QString()>;

// The file that such an address names, if it exists and lies in `skinDir` when all links and ".."
// are resolved; empty otherwise.
QString SkinFile(const QUrl& url, const QString& skinDir);

// A preview of a post, one of a post with a media file, the player of such a file, and what stands
// for a page that has crashed.
enum class PageKind { Post, Podcast, Player, Crash };

// `html` with the content policy of its kind as the first element of its head, or in front of it.
// Turning scripts off is not enough: while a navigation to a web page is pending they are on
// already. Without remote images a preview shows the skin's only: a picture in the web tells its
// author who reads. Behind the policy the page takes its colours from the skin's file `styleSheet`
// (an absolute path; empty: none), but for the player, which has its own.
QByteArray WithHead(const QByteArray& html, PageKind kind, bool showsRemoteImages,
                    const QString& styleSheet);

}  // namespace feedloom
