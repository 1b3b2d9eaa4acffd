// The animation of the window that announces new posts, without the window: it slides up, stays,
// fades out and closes. The owner supplies the timers. Interface thread only.
#pragma once

#include <QRect>
#include <chrono>

namespace feedloom {

inline constexpr int kNoticeWidth = 201;
inline constexpr int kNoticeHeight = 98;

// The ids of the window's timers.
enum NoticeTimer {
  kTimerFadeIn = 1,  // never started by NoticeAnimation
  kTimerFadeOut = 2,
  kTimerDisplay = 3,
  kTimerSlide = 0x500,
};

class NoticeTimers {
 public:
  virtual ~NoticeTimers() = default;

  // Starts the timer `id`, which fires after each period until it is stopped.
  virtual void Start(int id, std::chrono::milliseconds period) = 0;
  // Stops the timer `id`. Does nothing when it is not running.
  virtual void Stop(int id) = 0;
};

// Converts the transparency setting (percent, clamped to 0..100) to an alpha value from 0 (opaque)
// to kInvisible.
int NoticeAlphaValue(int transparencySetting);

// The number of posts since the last announcement: the difference of the unread totals, at least 0.
// A total is -1 when the store could not read it.
int NewPostCount(int unreadTotal, int announcedTotal);

// The state of the animation.
class NoticeAnimation {
 public:
  // `timers` must outlive the object.
  explicit NoticeAnimation(NoticeTimers& timers) : timers_(timers) {}

  // Starts to slide up in the lower right corner of `screen`, from height 0. `alphaValue` is the
  // transparency until the window fades out, from 0 to kInvisible.
  void Begin(const QRect& screen, int alphaValue);
  // Call this when the timer `id` fires.
  void OnTimer(int id);

  // The position and size of the window on the screen.
  const QRect& Geometry() const { return geometry_; }
  // The transparency: 0 is opaque, kInvisible or more is invisible.
  int FadeLevel() const { return fadeLevel_; }
  bool IsVisible() const { return isVisible_; }
  // The window has reached its full height.
  bool IsShown() const { return isShown_; }
  // The window has faded out and must be closed.
  bool IsClosed() const { return isClosed_; }

 private:
  void Slide();
  void StartFadeOut();
  void FadeOut();
  void FadeIn();

  NoticeTimers& timers_;
  QRect geometry_;
  int fadeLevel_ = 0;
  bool isVisible_ = false;
  bool isShown_ = false;
  bool isClosed_ = false;
};

}  // namespace feedloom
