// The window that announces new posts: it slides up in the lower right corner of the screen, stays
// for five seconds, fades out and closes.
#pragma once

#include <QBasicTimer>
#include <map>

#include "ui/notice/NoticeMotion.h"
#include "vxctrl/CVxDialog.h"

class QLabel;

namespace feedloom {

// Made by new, for one announcement; it deletes itself when it is closed. It stays on top and never
// takes the keyboard from the window that has it. Where the desktop does not mix windows it is
// opaque to its end.
class CRSS_AnnounceDlg : public CVxDialog, private NoticeTimers {
  Q_OBJECT

 public:
  // `skin` and `owner` outlive the window.
  CRSS_AnnounceDlg(const Skin& skin, QWidget* owner);

  // Shows how many posts are new, on the owner's screen. `alphaValue`: from NoticeAlphaValue. To be
  // called once.
  void Announce(int count, int alphaValue);

 signals:
  // A click on the window, but not on its close button. The window has closed then, and is deleted
  // when the program waits for events again.
  void Clicked();

 protected:
  void done(int result) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  bool LoadBackground();
  // A text in the rectangle under this key.
  QLabel* AddText(const char* placeKey, const QFont& font, Qt::Alignment alignment);
  void AddCloseButton();
  void FollowMotion();

  void Start(int id, std::chrono::milliseconds period) override;
  void Stop(int id) override;

  const bool hasImage_;
  QLabel* const count_;
  std::map<int, QBasicTimer> timers_;
  NoticeMotion motion_{*this};
  bool isPressed_ = false;
};

}  // namespace feedloom
