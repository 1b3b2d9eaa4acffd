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
// feedloom://page/<number>, feedloom://page/<absolute path of a skin file>.
inline constexpr char kPageScheme[] = "feedloom";

QUrl GeneratedPageUrl(int number);
QUrl SkinFileUrl(const QString& path);
bool IsGenerated(const QUrl& url);

// The number in the address of a generated page; none in any other address.
std::optional<int> PageNumber(const QUrl& url);

// Tells the skin's directory as it is now: the host may change it.
using SkinDirectory = std::function<QString()>;

// The file that such an address names, if it exists and lies in `skinDir` when all links and ".."
// are resolved; empty otherwise.
QString SkinFile(const QUrl& url, const QString& skinDir);

enum class PageKind { Preview, Player };

// `html` with the content policy of its kind as the first element of its head. Turning scripts off
// is not enough: while a navigation to a web page is pending they are on already.
QByteArray WithContentPolicy(const QByteArray& html, PageKind kind);

// What began a navigation: the module or the user's own commands (an address, back, reload), a link
// that the user clicked, or the page.
enum class NavigationCause { Command, Link, Page };

// Whether a page at `from` may be left for `to`, or may load `to` in a frame of its own. A
// generated page has no frames and is left for web pages only; no page leads to a generated one.
bool MayNavigate(const QUrl& from, const QUrl& to, NavigationCause cause, bool isMainFrame);

// http and https.
bool IsWebAddress(const QUrl& url);

}  // namespace feedloom
