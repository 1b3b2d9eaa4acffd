// What a notification of the desktop says.
#pragma once

#include <QString>

namespace feedloom {

// "3 new posts", in the host's language.
QString NoticeSummary(int posts);

// The channels and their newest posts, six at most, of the lines of kMessageNewPosts, each in one
// line of 120 signs at most. With `hasMarkup` it is text for a service that reads markup.
QString NoticeBody(const QString& lines, bool hasMarkup);

}  // namespace feedloom
