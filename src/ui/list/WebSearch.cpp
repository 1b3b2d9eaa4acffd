#include "ui/list/WebSearch.h"

#include <utility>

#include "controls/CVxListCtrl.h"
#include "exchange/DirectorySearch.h"
#include "skin/Keys.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/Subscribing.h"

namespace feedloom {
WebSearch::WebSearch(Desk& desk, Reading& reading, Subscribing& subscribing, CVxListCtrl& list,
                     std::function<void(PostList)> append)
    : desk_(desk),
      reading_(reading),
      subscribing_(subscribing),
      list_(list),
      append_(std::move(append)),
      escape_(list, [this] { Cancel(); }) {
  // Queued, because the list must not be disabled while it is still scrolling.
  connect(&list_, &CVxListCtrl::EndReached, this, &WebSearch::LoadNextPage, Qt::QueuedConnection);
}

WebSearch::~WebSearch() = default;

bool WebSearch::IsRunning() const { return search_ && search_->IsRunning(); }

void WebSearch::Begin(const std::string& word) {
  if (!search_) search_ = subscribing_.MakeDirectorySearch();
  search_->Begin(word,
                 [this, word](DirectoryAnswer answer) { OnFirstPage(std::move(answer), word); });
  BeginWait();
}

// The list shows this search's results as long as the mode is WebDirectory: everything else that
// fills the list sets another mode.
void WebSearch::LoadNextPage() {
  if (desk_.State().listMode != ListMode::WebDirectory || !search_) return;
  if (search_->IsRunning() || !search_->HasMore()) return;
  search_->More([this](DirectoryAnswer answer) { OnNextPage(std::move(answer)); });
  BeginWait();
}

void WebSearch::OnFirstPage(DirectoryAnswer answer, const std::string& word) {
  EndWait();
  const bool isAnswered = answer.isAnswered;
  PostList list = ToPostList(std::move(answer));
  if (isAnswered) list.whenEmpty = kTextNothingFound;
  list.word = word;
  reading_.ListPosts(ListMode::WebDirectory, std::move(list));
  if (isAnswered) return;
  // A message box, as the main page would replace a status text. The object may be deleted
  // meanwhile.
  desk_.ShowTextMessage(kSectionTexts, kTextDirectoryFailed, MsgBoxKind::Notice);
}

// The list tells its rows apart by ids: these are below those of the store.
PostList WebSearch::ToPostList(DirectoryAnswer answer) {
  for (PostRow& row : answer.rows) row.id = --lastId_;
  return {
      .posts = std::move(answer.rows), .areSearchResults = answer.isAnswered, .areFromWeb = true};
}

void WebSearch::OnNextPage(DirectoryAnswer answer) {
  EndWait();
  if (!answer.isAnswered) return Report(kTextDirectoryFailed);
  append_(ToPostList(std::move(answer)));
}

void WebSearch::Cancel() {
  if (!IsRunning()) return;
  search_->GiveUp();
  EndWait();
}

void WebSearch::BeginWait() {
  list_.SetInputBlocked(true);
  escape_.Start();
  Report(kTextDirectorySearching);
}

void WebSearch::EndWait() {
  escape_.Stop();
  list_.SetInputBlocked(false);
  desk_.ReportMessage("");  // removes the text of BeginWait
}

void WebSearch::Report(const char* textKey) {
  desk_.ReportMessage(desk_.GetSkin().GetText(kSectionTexts, textKey));
}

}  // namespace feedloom
