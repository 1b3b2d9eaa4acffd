#include "ui/TextSearcher.h"

#include <utility>

#include "search/TextQuery.h"
#include "skin/Keys.h"
#include "ui/Desk.h"
#include "ui/Reading.h"

namespace feedloom {
namespace {

const char* TextOf(QueryFault fault) {
  switch (fault) {
    case QueryFault::kNothing:
      return kTextQueryNothing;
    case QueryFault::kTooManyWords:
      return kTextQueryTooLong;
    case QueryFault::kDate:
      return kTextQueryDate;
    case QueryFault::kNone:
      break;
  }
  return nullptr;
}

}  // namespace

TextSearcher::TextSearcher(Desk& desk, Reading& reading, QWidget& window)
    : desk_(desk),
      reading_(reading),
      escape_(window, [this] { Cancel(); }),
      jobs_(desk.ToInterfaceThread()) {}

void TextSearcher::Begin(const std::string& query, std::optional<RowKey> within) {
  TextSearch search{.query = desk_.GetStore().TextCodePage().ToUtf8(query), .within = within};
  if (const char* const fault = TextOf(ParseTextQuery(search.query).fault)) {
    desk_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
    return;
  }
  Cancel();
  Start(std::move(search), query);
}

void TextSearcher::Start(TextSearch search, const std::string& word) {
  isRunning_ = true;
  listings_ = desk_.State().listings;
  number_ = ++desk_.State().textSearches;
  escape_.Start();
  TellText(desk_, kTextTextsSearching);
  const auto job = [this, search, word, &store = desk_.GetStore()](
                       const std::stop_token& stop, const BackgroundJobs::Tell& tell) {
    tell([this, search, word, hits = SearchTexts(store, search, stop)]() mutable {
      OnEnd(std::move(hits), search, word);
    });
  };
  jobs_.Start(job, [this] { OnEnd(std::nullopt, {}, {}); });
}

// A store that fails has reported it.
void TextSearcher::OnEnd(std::optional<TextHits> hits, const TextSearch& search,
                         const std::string& word) {
  End();
  const SharedState& state = desk_.State();
  if (!hits || state.listings != listings_ || state.textSearches != number_) return;
  const bool wasDamaged = hits->wasDamaged;
  reading_.ListPosts(ListMode::Selection, {.posts = std::move(hits->posts),
                                           .areSearchResults = true,
                                           .hasMore = hits->hasMore,
                                           .whenEmpty = kTextNothingFound,
                                           .word = word,
                                           .marked = search.query});
  if (wasDamaged) TellText(desk_, kTextIndexDamaged);
}

void TextSearcher::Cancel() {
  if (!isRunning_) return;
  jobs_.StopAll();
  End();
}

void TextSearcher::End() {
  isRunning_ = false;
  escape_.Stop();
  desk_.ReportMessage("");  // removes the text of Start
}

}  // namespace feedloom
