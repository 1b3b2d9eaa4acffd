#include "shell/HostNews.h"

#include <algorithm>
#include <string>
#include <utility>

#include "shell/ChannelNotice.h"
#include "shell/NewPostNotice.h"
#include "shell/StatusLine.h"
#include "store/Search.h"
#include "threads/Messages.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/notice/CRSS_AnnounceDlg.h"

namespace feedloom {
namespace {

constexpr std::size_t kMostChannels = 20;

// Titles come from feeds: what would end a line or a field becomes a blank.
std::string Field(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char byte) { return byte < ' '; }, ' ');
  return text;
}

std::string Line(const ChannelCount& channel) {
  return Field(channel.title) + '\t' + std::to_string(channel.posts) + '\t' + Field(channel.newest);
}

std::string Lines(std::span<const PostRow> posts) {
  std::string lines;
  const std::vector<ChannelCount> channels = CountByChannel(posts);
  for (const ChannelCount& channel :
       std::span(channels).first(std::min(channels.size(), kMostChannels)))
    lines += (lines.empty() ? "" : "\n") + Line(channel);
  return lines;
}

}  // namespace

void ShowAnnounced(Desk& desk, Reading& reading, QWidget& frame, std::span<const int> posts) {
  BringUp(*frame.window());
  PostList list;
  if (LoadPostsWithIds(desk.GetStore(), posts, list.posts)) {
    reading.ListPosts(ListMode::Today, std::move(list));
  }
}

HostNews::HostNews(Desk& desk, Reading& reading, QWidget& frame,
                   std::function<std::optional<int>()> count)
    : desk_(desk), reading_(reading), frame_(frame), count_(std::move(count)) {
  change_.setSingleShot(true);
  QObject::connect(&change_, &QTimer::timeout, &change_, [this] { TellCount(); });
}

void HostNews::TellCount() {
  const std::optional<int> count = count_();
  if (!count || std::exchange(toldCount_, count) == count) return;
  SendToWindow(frame_.window(), kMessageUnreadCount, *count, 0);
}

void HostNews::OnRunEnded(std::span<const int> ids) {
  std::vector<PostRow> posts;
  if (ids.empty() || !FindUnreadPosts(desk_.GetStore(), ids, posts) || posts.empty()) return;
  toldPosts_.clear();
  for (const PostRow& post : posts) toldPosts_.push_back(post.id);
  const std::string lines = Lines(posts);
  SendToWindow(frame_.window(), kMessageNewPosts, static_cast<std::intptr_t>(posts.size()),
               reinterpret_cast<std::intptr_t>(&lines));
}

void HostNews::Show() {
  if (!toldPosts_.empty()) ShowAnnounced(desk_, reading_, frame_, toldPosts_);
}

}  // namespace feedloom
