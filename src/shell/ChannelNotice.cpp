#include "shell/ChannelNotice.h"

#include <algorithm>
#include <map>
#include <utility>

#include "shell/HostNews.h"
#include "shell/RefreshTexts.h"
#include "store/Search.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/notice/CRSS_AnnounceDlg.h"
#include "ui/notice/NoticeAnimation.h"
#include "ui/tree/TimerPeriods.h"

namespace feedloom {

std::vector<ChannelCount> CountByChannel(std::span<const PostRow> posts) {
  std::map<int, ChannelCount> counts;
  for (const PostRow& post : posts) {
    ChannelCount& count = counts[post.ownerId];
    count.title = post.ownerTitle;
    if (count.posts == 0) count.newest = post.title;
    ++count.posts;
  }
  std::vector<ChannelCount> channels;
  for (auto& [id, count] : counts) channels.push_back(std::move(count));
  std::ranges::stable_sort(channels, std::greater(), &ChannelCount::posts);
  return channels;
}

ChannelNotice::ChannelNotice(Desk& desk, Reading& reading, const Settings& settings, QWidget& frame)
    : desk_(desk), reading_(reading), settings_(settings), frame_(frame) {
  quiet_.setSingleShot(true);
  QObject::connect(&quiet_, &QTimer::timeout, &quiet_, [this] {
    if (!isRunning_) Announce();
  });
}

void ChannelNotice::OnRunEnded(std::span<const int> posts) {
  isRunning_ = false;
  waiting_.insert(waiting_.end(), posts.begin(), posts.end());
  if (!quiet_.isActive()) Announce();
}

// Posts that the user has read meanwhile, or removed, are no news.
void ChannelNotice::Announce() {
  const std::vector<int> ids = std::exchange(waiting_, {});
  const auto period = NotificationPeriod(settings_);
  std::vector<PostRow> posts;
  if (!period || ids.empty() || !FindUnreadPosts(desk_.GetStore(), ids, posts)) return;
  if (posts.empty()) return;
  quiet_.start(*period);
  Show(posts);
}

void ChannelNotice::Show(std::span<const PostRow> posts) {
  std::vector<int> ids;
  for (const PostRow& post : posts) ids.push_back(post.id);
  if (window_) window_->close();
  window_ = new CRSS_AnnounceDlg(desk_.GetSkin(), &frame_);
  window_->AnnounceChannels(NewPostsText(desk_.GetSkin(), static_cast<int>(posts.size())),
                            CountByChannel(posts),
                            NoticeAlphaValue(settings_.newFeedMsgTransparency));
  QObject::connect(window_, &CRSS_AnnounceDlg::Clicked, &frame_,
                   [this, ids = std::move(ids)] { ShowAnnounced(desk_, reading_, frame_, ids); });
}

}  // namespace feedloom
