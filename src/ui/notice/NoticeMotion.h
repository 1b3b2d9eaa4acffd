// What the window that announces new posts does, from its timers alone: it slides up, stays, fades
// out and closes. Pure but for the timers, which the owner brings.
#pragma once

#include <QRect>
#include <chrono>

namespace feedloom {

inline constexpr int kNoticeWidth = 201;
inline constexpr int kNoticeHeight = 98;

// The window's timers, by number.
enum NoticeTimer {
  kTimerFadeIn = 1,  // the window never starts it itself
  kTimerFadeOut = 2,
  kTimerDisplay = 3,
  kTimerSlide = 0x500,
};

class NoticeTimers {
 public:
  virtual ~NoticeTimers() = default;

  // The timer fires after each period, until it is stopped.
  virtual void Start(int id, std::chrono::milliseconds period) = 0;
  // Nothing when it does not run.
  virtual void Stop(int id) = 0;
};

// How transparent the window is at first, 0 to kInvisible, from the setting, which is in percent. A
// setting out of its range counts as the nearest one in it.
int NoticeAlphaValue(int transparencySetting);

// How many posts are new since the last announcement, from the unread totals; -1 is one that could
// not be read. Never below 0.
int NewPostCount(int unreadTotal, int announcedTotal);

class NoticeMotion {
 public:
  // `timers` outlives the motion.
  explicit NoticeMotion(NoticeTimers& timers) : timers_(timers) {}

  // Puts the window over the lower right corner of `screen`, still without height, and lets it
  // slide up. `alphaValue` is how transparent it is until it fades, from 0 to kInvisible.
  void Begin(const QRect& screen, int alphaValue);
  // The timer with this number has fired.
  void OnTimer(int id);

  const QRect& Place() const { return place_; }
  // 0 opaque, kInvisible or more: not to be seen.
  int FadeLevel() const { return fadeLevel_; }
  bool IsVisible() const { return isVisible_; }
  // The slide has finished.
  bool IsShown() const { return isShown_; }
  // The fade has finished: the window is to go.
  bool IsClosed() const { return isClosed_; }

 private:
  void Slide();
  void StartFadeOut();
  void FadeOut();
  void FadeIn();

  NoticeTimers& timers_;
  QRect place_;
  int fadeLevel_ = 0;
  bool isVisible_ = false;
  bool isShown_ = false;
  bool isClosed_ = false;
};

}  // namespace feedloom
