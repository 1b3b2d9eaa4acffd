// The words of a search in texts, in texts of the toolkit. Any thread.
#pragma once

#include <QString>
#include <vector>

#include "search/TextQuery.h"

namespace feedloom {

// A range of a QString.
struct FoundWord {
  qsizetype begin = 0;
  qsizetype end = 0;

  bool operator==(const FoundWord&) const = default;
};

// The places in `text` that a view marks for `query`, as FindMarks of search/Marks.h tells them.
std::vector<FoundWord> FindWords(const QString& text, const TextQuery& query);

}  // namespace feedloom
