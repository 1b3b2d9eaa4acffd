#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "store/TextSearch.h"
#include "threads/BackgroundJobs.h"
#include "ui/EscapeWatch.h"

namespace feedloom {

class Desk;
class Reading;

// Searches titles and texts on a background thread and fills the list with what it finds. A search
// ends without that when the user presses Escape, when something else has filled the list
// meanwhile, or when another search was begun. Interface thread only. No function blocks, but the
// destructor waits for the statement under way.
class TextSearcher {
 public:
  // `window` is a widget of the window in which Escape ends a search. All must outlive the object.
  TextSearcher(Desk& desk, Reading& reading, QWidget& window);

  // Looks for `query`, in the module's code page, in the posts of a row of the tree, or in all
  // posts and saved posts. When the query has a fault, a message box says so and nothing else
  // happens; the object may then have been destroyed.
  void Begin(const std::string& query, std::optional<RowKey> within = std::nullopt);
  void Cancel();
  bool IsRunning() const { return isRunning_; }

 private:
  void Start(TextSearch search, const std::string& word);
  void OnEnd(std::optional<TextHits> hits, const TextSearch& search, const std::string& word);
  void End();

  Desk& desk_;
  Reading& reading_;
  EscapeWatch escape_;
  bool isRunning_ = false;
  int listings_ = 0;  // SharedState::listings and
  int number_ = 0;    // SharedState::textSearches when the search was begun
  BackgroundJobs jobs_;
};

}  // namespace feedloom
