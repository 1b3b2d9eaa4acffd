#include "shell/FrameRefresh.h"

#include <utility>

namespace feedloom {

FrameRefresh::FrameRefresh(const std::shared_ptr<InterfaceThread>& thread, SharedServices services,
                           InterfaceTarget::Handler toFrame, InterfaceTarget::Handler toHost)
    : registry_(services->registry),
      frame_(thread, std::move(toFrame)),
      host_(thread, std::move(toHost)),
      checker_(std::in_place, services, [thread](auto work) { thread->Queue(std::move(work)); }),
      engine_(std::in_place, services, frame_, host_) {}

void FrameRefresh::Stop() {
  checker_.reset();
  engine_.reset();
}

void FrameRefresh::StopRun() {
  if (engine_) engine_->StopRun();
}

RefreshSums FrameRefresh::Sums() const { return engine_ ? engine_->Sums() : RefreshSums(); }

bool FrameRefresh::IsAnyChannelQueued(std::span<const int> channelIds) const {
  return engine_ && engine_->IsAnyChannelQueued(channelIds);
}

void FrameRefresh::QueueRefresh(std::vector<Channel> entries) {
  if (engine_) engine_->Enqueue(std::move(entries));
}

void FrameRefresh::StartRefresh() {
  if (engine_) engine_->StartRefresh();
}

FeedVisit FrameRefresh::LastVisit(const Channel& channel) const {
  return engine_ ? engine_->LastVisit(channel) : FeedVisit{channel.xmlLink};
}

void FrameRefresh::CheckFeed(const std::string& address, const std::optional<GivenLogin>& login,
                             std::function<void(const FeedCheckAnswer&)> onAnswer) {
  if (checker_) checker_->Start(address, login, std::move(onAnswer));
}

void FrameRefresh::StopFeedCheck() {
  if (checker_) checker_->Stop();
}

}  // namespace feedloom
