// The addresses in a post's page, as pure functions; any thread. A post's links and pictures are
// often relative to the page that it stands for, its source. The page that shows the post is served
// under a path that goes on like the source's, so that the engine itself resolves what is relative;
// here the result is taken back to the source's server.
#pragma once

#include <QUrl>

namespace feedloom {

// The address of generated page `number`, whose source may be of any scheme or empty.
QUrl PageUrlFor(int number, const QUrl& source);

// The address that is meant by `resolved`, which the engine has resolved in a page of `source`: on
// the server of `source`, or on another one for "//host/path". A user name is left out. `resolved`
// itself when it is no address of generated pages, or `source` no web address.
QUrl AddressInSource(const QUrl& resolved, const QUrl& source);

}  // namespace feedloom
