#pragma once

#include <QTimer>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "store/Rows.h"

class QWidget;

namespace feedloom {

class Desk;
class Reading;

// Brings up the window around `frame` and lists the posts with these ids, as far as they are still
// there. Interface thread.
void ShowAnnounced(Desk& desk, Reading& reading, QWidget& frame, std::span<const int> posts);

// Tells the host's window how many posts are unread, and which ones a refresh has brought, for a
// host that shows that outside its window. Interface thread only.
class HostNews {
 public:
  // `count` gives the number of unread posts of all channels, nullopt while that is not known. The
  // window around `frame` is told. All must outlive the object.
  HostNews(Desk& desk, Reading& reading, QWidget& frame, std::function<std::optional<int>()> count);

  // The number may have changed: the window is told when the event loop comes round, once for all
  // changes until then.
  void OnChange() { change_.start(); }

  // A refresh has ended that has stored the posts with these ids. Those that are read or gone are
  // not told, and none is when no other is left.
  void OnRunEnded(std::span<const int> posts);

  // Shows the posts that the window was told of last; does nothing when there were none.
  void Show();

 private:
  void TellCount();

  Desk& desk_;
  Reading& reading_;
  QWidget& frame_;
  const std::function<std::optional<int>()> count_;
  QTimer change_;
  std::optional<int> toldCount_;
  std::vector<int> toldPosts_;
};

}  // namespace feedloom
