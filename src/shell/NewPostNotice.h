#pragma once

#include <QPointer>

class QWidget;

namespace feedloom {

class CRSS_AnnounceDlg;
class Desk;

// Makes a window visible, above others and active.
void BringUp(QWidget& window);

// Announces the posts that have arrived since the last announcement, in a window that takes the
// place of one still open. Interface thread only.
class NewPostNotice {
 public:
  explicit NewPostNotice(Desk& desk) : desk_(desk) {}

  // Returns the window, with the given transparency of Settings, for the caller to connect; null
  // when nothing is new. `parent` owns it.
  CRSS_AnnounceDlg* Announce(int transparency, QWidget* parent);

 private:
  Desk& desk_;
  QPointer<CRSS_AnnounceDlg> window_;
};

}  // namespace feedloom
