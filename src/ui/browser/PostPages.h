#pragma once

#include <QUrl>

#include "ui/browser/CRSS_HtmlView.h"

namespace feedloom {

class Frame;
struct PostRow;

// The page that shows a post: its preview. A result of the web directory has the button that adds
// its feed.
PageToWrite MakePreview(Frame& frame, const PostRow& post);

// The page that plays the media file of a podcast's post.
PageToWrite MakePlayer(Frame& frame, const PostRow& post);

// The page for one that could not be shown to its end.
QByteArray MakeCrashPage(Frame& frame, const QUrl& crashed);

}  // namespace feedloom
