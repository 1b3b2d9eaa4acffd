// The window that announces new posts. It slides up in the lower right corner of the screen, stays
// for five seconds, fades out and closes. Interface thread only.
#pragma once

#include <QBasicTimer>
#include <map>
#include <span>
#include <string>

#include "controls/CVxDialog.h"
#include "ui/notice/NoticeAnimation.h"

class QLabel;

namespace feedloom {

// A channel with new posts; the titles are in the module's code page.
struct ChannelCount {
  std::string title;
  int posts = 0;
  std::string newest = {};  // title of the newest post
};

// Create it with new, for one announcement; it deletes itself when it closes. It stays on top and
// never takes the keyboard focus. It stays opaque when the desktop has no compositing.
class CRSS_AnnounceDlg : public CVxDialog, private NoticeTimers {
  Q_OBJECT

 public:
  // `skin` and `owner` must outlive the window.
  CRSS_AnnounceDlg(const Skin& skin, QWidget* owner);

  // Shows the number of new posts on the owner's screen. `alphaValue` is the result of
  // NoticeAlphaValue; what is above four fifths of kInvisible is shown as that. Call it once.
  void Announce(int count, int alphaValue);
  // As Announce, but shows the first three of `channels` with their numbers, and how many more
  // there are, below `caption`, in the module's code page.
  void AnnounceChannels(const std::string& caption, std::span<const ChannelCount> channels,
                        int alphaValue);

 signals:
  // The user clicked on the window, but not on its close button. The window is closed by then; the
  // event loop deletes it later.
  void Clicked();

 protected:
  void done(int result) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  bool LoadBackground();
  // Adds a label in the rectangle that the skin has for `placeKey`. The window owns it.
  QLabel* AddLabel(const char* placeKey, const QFont& font, Qt::Alignment alignment);
  void AddCloseButton();
  QString AddChannel(const QRect& row, const ChannelCount& channel);
  // Adds a label. The window owns it.
  QLabel* AddLine(const QRect& place, const QString& text, const QFont& font,
                  Qt::Alignment alignment);
  void Begin(const QString& told, int alphaValue);
  void ApplyMotion();

  void Start(int id, std::chrono::milliseconds period) override;
  void Stop(int id) override;

  const bool hasImage_;
  QLabel* const caption_;
  QLabel* const count_;
  std::map<int, QBasicTimer> timers_;
  NoticeAnimation motion_{*this};
  bool isPressed_ = false;
};

}  // namespace feedloom
