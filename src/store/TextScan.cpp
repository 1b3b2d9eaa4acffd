#include "store/TextScan.h"

#include <fmt/format.h>

namespace feedloom {
namespace {

std::string Condition(ScannedTexts which, bool areSaved, int last) {
  const char* const id = IdColumn(areSaved);
  if (which == ScannedTexts::kAll) return fmt::format("{} > {}", id, last);
  return fmt::format(
      "{0} > {1} and {0} in (Select text_todo_postID From TB_TEXT_TODO Where text_todo_isSaved = "
      "{2:d})",
      id, last, areSaved);
}

}  // namespace

bool ScanTexts(TextRows& texts, const SearchedRows& rows, ScannedTexts which,
               const std::stop_token& stop, const OnHit& onHit) {
  for (const bool areSaved : {false, true}) {
    std::optional<int> last = rows.HaveSaved(areSaved) ? 0 : std::optional<int>();
    if (!last) continue;
    do {
      if (stop.stop_requested()) return false;
      last = texts.Read(areSaved, Condition(which, areSaved, *last), onHit);
    } while (last && *last > 0);
    if (!last) return false;
  }
  return true;
}

}  // namespace feedloom
