#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "ui/EscapeWatch.h"
#include "ui/PostList.h"

namespace feedloom {

class CVxListCtrl;
class DirectorySearch;
class Desk;
class Reading;
class Subscribing;
struct DirectoryAnswer;

// The list's search of the web directory. While it waits for an answer, the list takes no input,
// and Escape cancels the search whichever control of the window has the focus. Interface thread
// only. No function blocks.
class WebSearch : public QObject {
 public:
  // `append` is called with each page after the first and appends it to the list. The
  // other arguments must outlive the object.
  WebSearch(Desk& desk, Reading& reading, Subscribing& subscribing, CVxListCtrl& list,
            std::function<void(PostList)> append);
  ~WebSearch() override;

  // Starts a search for `word`, which is in the module's code page, and cancels a running one. The
  // first page is passed to Reading::ListPosts, without rows after a failure. The next pages are
  // loaded when the user reaches the end of the list, until the list shows something else.
  void Begin(const std::string& word);
  // Cancels a running search: no more of its pages arrive.
  void Cancel();
  bool IsRunning() const;

 private:
  void LoadNextPage();
  void OnFirstPage(DirectoryAnswer answer, const std::string& word);
  void OnNextPage(DirectoryAnswer answer);
  PostList ToPostList(DirectoryAnswer answer);
  void BeginWait();
  void EndWait();
  void Report(const char* textKey);

  Desk& desk_;
  Reading& reading_;
  Subscribing& subscribing_;
  CVxListCtrl& list_;
  const std::function<void(PostList)> append_;
  EscapeWatch escape_;
  int lastId_ = 0;
  std::unique_ptr<DirectorySearch> search_;  // null before the first search
};

}  // namespace feedloom
