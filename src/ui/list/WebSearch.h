#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "ui/PostList.h"

namespace feedloom {

class CVxListCtrl;
class DirectorySearch;
class Frame;
struct DirectoryAnswer;

// The list's search of the web directory. While it waits for an answer the list is closed, and
// Escape gives the search up wherever the keyboard is in the window. Interface thread; nothing
// blocks.
class WebSearch : public QObject {
 public:
  // `append` puts a further page behind the rows of the list. `frame` and `list` outlive the
  // object.
  WebSearch(Frame& frame, CVxListCtrl& list, std::function<void(PostList)> append);
  ~WebSearch() override;

  // The first page goes to Frame::ListPosts when it comes: without rows when it does not. Further
  // pages follow when the user reaches the list's end, until that shows something else. Takes the
  // place of a search that runs.
  void Begin(const std::string& word);
  // Nothing comes any more of what was asked for.
  void GiveUp();
  bool IsRunning() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void More();
  void OnFirstPage(DirectoryAnswer answer);
  void OnFurtherPage(DirectoryAnswer answer);
  void Wait();
  void EndWait();
  void Report(const char* textKey);

  Frame& frame_;
  CVxListCtrl& list_;
  const std::function<void(PostList)> append_;
  std::unique_ptr<DirectorySearch> search_;  // null before the first one
};

}  // namespace feedloom
