#pragma once

#include <QByteArray>
#include <QHash>
#include <deque>
#include <optional>

namespace feedloom {

// The generated pages that the browser may ask for again, by number: the one on display and those
// that back and forward lead to. The oldest ones go when there are too many. A plain container of
// the interface thread.
class GeneratedPages {
 public:
  // Keeps `html` (UTF-8); its number, counted from 1.
  int Add(QByteArray html);

  // None when there never was such a page, or it has gone.
  std::optional<QByteArray> Find(int number) const;

 private:
  void DropOldest();

  QHash<int, QByteArray> pages_;
  std::deque<int> order_;  // of pages_, the oldest first
  qsizetype bytes_ = 0;
  int lastNumber_ = 0;
};

}  // namespace feedloom
