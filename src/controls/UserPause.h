#pragma once

#include <QTimer>
#include <functional>

namespace feedloom {

// Whether the user is in the middle of something: a dialog or a menu is open, or a button of the
// mouse is held.
bool IsUserBusy();

// Calls a function when the user makes a pause: the time of a double click behind the latest
// start(), and not while IsUserBusy(). What a first click changes thus never comes under the second
// one. It must not outlive its parent, whose child "userPause" it is. Interface thread only.
class UserPause : public QTimer {
 public:
  UserPause(QObject* parent, std::function<void()> run);
};

}  // namespace feedloom
