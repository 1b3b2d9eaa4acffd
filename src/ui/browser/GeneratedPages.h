#pragma once

#include <QByteArray>
#include <QHash>
#include <QUrl>
#include <deque>
#include <optional>

#include "search/TextQuery.h"
#include "ui/browser/PageRules.h"

namespace feedloom {

struct GeneratedPage {
  QByteArray html;  // UTF-8
  PageKind kind = PageKind::Post;
  QUrl source = {};  // the address of the post, of its media file, or of the page that has crashed
  QString title = {};     // of the post, in one line
  TextQuery marked = {};  // whose words are marked on display; without parts for none
};

// So large that layout costs more than starting another renderer process.
bool IsLarge(const GeneratedPage& page);

// The generated pages that the engine may request again: the page on display and those of the
// history. The oldest pages are dropped beyond 1000 pages or 64 MiB, but never the
// latest one. Interface thread.
class GeneratedPages {
 public:
  // Returns the page's number, counted from 1.
  int Add(GeneratedPage page);

  // The page; none when it has been dropped or never existed.
  std::optional<GeneratedPage> Find(int number) const;

 private:
  void DropOldest();

  QHash<int, GeneratedPage> pages_;
  std::deque<int> order_;  // the numbers in pages_, the oldest first
  qsizetype bytes_ = 0;
  int lastNumber_ = 0;
};

}  // namespace feedloom
