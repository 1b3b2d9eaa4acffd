#include "ui/notice/NoticeAnimation.h"

#include <algorithm>

#include "controls/CVxDialog.h"

namespace feedloom {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSlidePeriod(20);
constexpr milliseconds kDisplayTime(5000);
constexpr milliseconds kFadePeriod(50);

constexpr int kBottomMargin = 53;  // below the window, for a taskbar
constexpr int kSlideStep = 5;
constexpr int kFadeStep = 10;

// The next step from `length` to `target`; the last step may be shorter, and 0 follows.
int StepTowards(int target, int length) { return std::min(kSlideStep, target - length); }

}  // namespace

int NoticeAlphaValue(int transparencySetting) {
  return std::clamp(transparencySetting, 0, 100) * kInvisible / 100;
}

int NewPostCount(int unreadTotal, int announcedTotal) {
  return std::max(0, unreadTotal - announcedTotal);
}

void NoticeAnimation::Begin(const QRect& screen, int alphaValue) {
  const int right = screen.x() + screen.width();
  const int bottom = screen.y() + screen.height();
  geometry_ = QRect(right - kNoticeWidth, bottom - kBottomMargin, kNoticeWidth, 0);
  fadeLevel_ = alphaValue;
  isVisible_ = true;
  timers_.Start(kTimerSlide, kSlidePeriod);
}

void NoticeAnimation::OnTimer(int id) {
  switch (id) {
    case kTimerSlide:
      return Slide();
    case kTimerDisplay:
      return StartFadeOut();
    case kTimerFadeOut:
      return FadeOut();
    case kTimerFadeIn:
      return FadeIn();
  }
}

// The right and the lower edge keep their positions.
void NoticeAnimation::Slide() {
  geometry_.adjust(-StepTowards(kNoticeWidth, geometry_.width()),
                   -StepTowards(kNoticeHeight, geometry_.height()), 0, 0);
  if (geometry_.height() < kNoticeHeight) return;
  timers_.Stop(kTimerSlide);
  isShown_ = true;
  timers_.Start(kTimerDisplay, kDisplayTime);
}

void NoticeAnimation::StartFadeOut() {
  timers_.Stop(kTimerDisplay);
  timers_.Start(kTimerFadeOut, kFadePeriod);
}

void NoticeAnimation::FadeOut() {
  timers_.Stop(kTimerDisplay);
  if (fadeLevel_ <= kInvisible) fadeLevel_ += kFadeStep;
  if (fadeLevel_ >= kInvisible) isVisible_ = false;
  if (fadeLevel_ <= kInvisible) return;
  isClosed_ = true;
  timers_.Stop(kTimerFadeOut);
}

void NoticeAnimation::FadeIn() {
  if (fadeLevel_ > kFadeStep) fadeLevel_ -= kFadeStep;
}

}  // namespace feedloom
