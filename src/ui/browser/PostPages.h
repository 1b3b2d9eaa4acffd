#pragma once

#include <QUrl>

#include "ui/browser/CRSS_HtmlView.h"

namespace feedloom {

class Desk;
struct PostRow;

// The preview page of a post. A search result of the web directory has a button that adds its feed.
PageToWrite MakePreview(Desk& desk, const PostRow& post);

// The page that plays the media file of a podcast post.
PageToWrite MakePlayer(Desk& desk, const PostRow& post);

// The page that replaces the page `crashed`, whose renderer process has ended; HTML in UTF-8.
QByteArray MakeCrashPage(Desk& desk, const QUrl& crashed);

}  // namespace feedloom
