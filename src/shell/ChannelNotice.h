#pragma once

#include <QPointer>
#include <QTimer>
#include <span>
#include <vector>

#include "store/Rows.h"

class QWidget;

namespace feedloom {

class CRSS_AnnounceDlg;
class Desk;
class Reading;
struct ChannelCount;
struct Settings;

// The channels of `posts`, which are ordered newest first; those with the most posts first.
std::vector<ChannelCount> CountByChannel(std::span<const PostRow> posts);

// Announces the posts that refreshes have brought, by their channels, when a refresh has ended: at
// most once in the period of the settings, and not at all without one. What comes before the period
// is over is announced behind it. A click lists the posts that were announced. Interface thread
// only.
class ChannelNotice {
 public:
  // `frame` owns the window; it and the others must outlive the object. `settings` are those in
  // effect whenever something is to be announced.
  ChannelNotice(Desk& desk, Reading& reading, const Settings& settings, QWidget& frame);

  void OnRunBegan() { isRunning_ = true; }
  // A refresh has ended that has stored the posts with these ids.
  void OnRunEnded(std::span<const int> posts);

 private:
  void Announce();
  void Show(std::span<const PostRow> posts);

  Desk& desk_;
  Reading& reading_;
  const Settings& settings_;
  QWidget& frame_;
  QTimer quiet_;  // runs from an announcement until the next one may come
  bool isRunning_ = false;
  std::vector<int> waiting_;  // ids of posts that are not announced yet
  QPointer<CRSS_AnnounceDlg> window_;
};

}  // namespace feedloom
