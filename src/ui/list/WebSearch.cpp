#include "ui/list/WebSearch.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

#include "exchange/DirectorySearch.h"
#include "skin/Keys.h"
#include "ui/Frame.h"
#include "vxctrl/CVxListCtrl.h"

namespace feedloom {
namespace {

PostList Found(DirectoryAnswer answer) {
  return {.posts = std::move(answer.rows), .wereSearched = true};
}

}  // namespace

WebSearch::WebSearch(Frame& frame, CVxListCtrl& list, std::function<void(PostList)> append)
    : frame_(frame), list_(list), append_(std::move(append)) {
  // Queued: a list that is still scrolling must not be closed.
  connect(&list_, &CVxListCtrl::EndReached, this, &WebSearch::More, Qt::QueuedConnection);
}

WebSearch::~WebSearch() = default;

bool WebSearch::IsRunning() const { return search_ && search_->IsRunning(); }

void WebSearch::Begin(const std::string& word) {
  if (!search_) search_ = frame_.MakeDirectorySearch();
  search_->Begin(word, [this](DirectoryAnswer answer) { OnFirstPage(std::move(answer)); });
  Wait();
}

// What the list shows is this search's as long as the mode says so: all else that fills it has
// another one.
void WebSearch::More() {
  if (frame_.State().listMode != ListMode::WebDirectory || !search_) return;
  if (search_->IsRunning() || !search_->HasMore()) return;
  search_->More([this](DirectoryAnswer answer) { OnFurtherPage(std::move(answer)); });
  Wait();
}

void WebSearch::OnFirstPage(DirectoryAnswer answer) {
  EndWait();
  const bool isAnswered = answer.isAnswered;
  frame_.ListPosts(ListMode::WebDirectory, Found(std::move(answer)));
  if (isAnswered) return;
  // A status text would give way to those of the main page. The object may be gone afterwards.
  frame_.ShowTextMessage(kSectionTexts, kTextDirectoryFailed, MsgBoxKind::Notice);
}

void WebSearch::OnFurtherPage(DirectoryAnswer answer) {
  EndWait();
  if (!answer.isAnswered) return Report(kTextDirectoryFailed);
  append_(Found(std::move(answer)));
}

void WebSearch::GiveUp() {
  if (!IsRunning()) return;
  search_->GiveUp();
  EndWait();
}

void WebSearch::Wait() {
  list_.SetClosed(true);
  qApp->installEventFilter(this);
  Report(kTextDirectorySearching);
}

void WebSearch::EndWait() {
  qApp->removeEventFilter(this);
  list_.SetClosed(false);
  frame_.ReportMessage("");  // it searches no more
}

void WebSearch::Report(const char* textKey) {
  frame_.ReportMessage(frame_.GetSkin().GetText(kSectionTexts, textKey));
}

// No shortcut: the browser has one for the same key, and of two neither is carried out.
bool WebSearch::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress = event->type() == QEvent::KeyPress;
  if (!isPress && event->type() != QEvent::ShortcutOverride) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const auto* const widget = qobject_cast<QWidget*>(watched);
  if (key.key() != Qt::Key_Escape || !widget || widget->window() != list_.window()) return false;
  event->accept();  // who overrides a shortcut gets the key next
  // A key that is held was meant for the box that stood here before.
  if (isPress && !key.isAutoRepeat()) GiveUp();
  return true;
}

}  // namespace feedloom
