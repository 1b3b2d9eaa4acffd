#pragma once

#include <QByteArray>
#include <QHash>
#include <QUrl>
#include <deque>
#include <optional>

#include "ui/browser/PageRules.h"

namespace feedloom {

struct GeneratedPage {
  QByteArray html;  // UTF-8
  PageKind kind = PageKind::Post;
  QUrl source = {};  // the address of the post, of its media file, or of the page that has crashed
};

// What the engine takes longer to lay out than to begin another process.
bool IsLarge(const GeneratedPage& page);

// The generated pages that the browser may ask for again, by number: the one on display and those
// that back and forward lead to. The oldest ones go when there are too many. A plain container of
// the interface thread.
class GeneratedPages {
 public:
  // Its number, counted from 1.
  int Add(GeneratedPage page);

  // None when there never was such a page, or it has gone.
  std::optional<GeneratedPage> Find(int number) const;

 private:
  void DropOldest();

  QHash<int, GeneratedPage> pages_;
  std::deque<int> order_;  // of pages_, the oldest first
  qsizetype bytes_ = 0;
  int lastNumber_ = 0;
};

}  // namespace feedloom
