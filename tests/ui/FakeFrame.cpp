#include "ui/FakeFrame.h"

#include <algorithm>

#include "ingest/FeedCheckAnswer.h"

namespace feedloom {

FakeFrame::FakeFrame() = default;

FakeFrame::~FakeFrame() = default;

Store& FakeFrame::GetStore() { return db.Get(); }

const Skin& FakeFrame::GetSkin() const { return skin.Get(); }

SharedState& FakeFrame::State() { return state; }

void FakeFrame::ReportMessage(std::string_view text) { messages.emplace_back(text); }

MsgBoxAnswer FakeFrame::ShowTextMessage(const char*, const char* key, MsgBoxKind kind) {
  questions.emplace_back(key);
  kinds.push_back(kind);
  if (whileAsking) whileAsking();
  return nextAnswer;
}

const Actions& FakeFrame::GetActions() const { return actions; }

bool FakeFrame::IsAnyChannelQueued(std::span<const int> ids) const {
  return std::ranges::any_of(ids, [&](int id) { return queue.Contains(id); });
}

void FakeFrame::QueueRefresh(std::vector<RefreshEntry> entries) {
  for (RefreshEntry& entry : entries) queue.Append(std::move(entry));
}

void FakeFrame::StartRefresh() { ++refreshes; }

void FakeFrame::CheckFeed(const std::string& address,
                          std::function<void(const FeedCheckAnswer&)> onAnswer) {
  checkedAddresses.push_back(address);
  answerCheck = std::move(onAnswer);
}

void FakeFrame::StopFeedCheck() { answerCheck = nullptr; }

std::optional<int> FakeFrame::ExportOpml(const std::string& path) {
  exports.push_back(path);
  return nextExport;
}

void FakeFrame::ImportOpml(const ListSource& source) { imports.push_back(source); }

void FakeFrame::MergeOpml(const std::string& path,
                          std::function<void(const std::optional<ImportSums>&)> onEnd) {
  merges.push_back(path);
  endMerge = std::move(onEnd);
}

std::unique_ptr<DirectorySearch> FakeFrame::MakeDirectorySearch() {
  auto services = std::make_shared<IngestServices>(IngestServices{
      db.Shared(), Registry(workFolder.File("registry.reg")), SystemClock(), workFolder.Path()});
  return std::make_unique<DirectorySearch>(
      std::move(services), directoryService,
      [thread = interfaceThread](auto work) { thread->Run(std::move(work)); });
}

void FakeFrame::FolderWasAdded(const FolderRow& folder) { addedFolders.push_back(folder); }

void FakeFrame::CabinetWasAdded(const CabinetRow& cabinet) { addedCabinets.push_back(cabinet); }

void FakeFrame::ChannelWasAdded(const ChannelRow& channel) { addedChannels.push_back(channel); }

void FakeFrame::ChannelWasMoved(int channelId, int folderId) {
  moves.emplace_back(channelId, folderId);
}

void FakeFrame::ListPosts(ListMode mode, PostList list, FirstShown firstShown) {
  state.listMode = mode;
  state.listShowsSelection = mode == ListMode::Selection && !list.wereSearched;
  lists.push_back(std::move(list));
  firstShowns.push_back(firstShown);
}

void FakeFrame::RelistPosts(PostList list) {
  state.listMode = ListMode::Selection;
  state.listShowsSelection = true;
  relists.push_back(std::move(list));
}

void FakeFrame::FocusSearch() { ++searchFocuses; }

void FakeFrame::GoToUnreadPost(bool forward) { unreadPostsAsked.push_back(forward); }

void FakeFrame::ShowPost(const PostRow& post) { shown.push_back(post.title); }

void FakeFrame::ShowMainPage() { shown.emplace_back("(main page)"); }

bool FakeFrame::ShowsRemoteImages() const { return showsRemoteImages; }

void FakeFrame::AddChannel(const std::string& address) { addedAddresses.push_back(address); }

void FakeFrame::PostIsSaved(int cabinetId) { savedTo.push_back(cabinetId); }

void FakeFrame::PostWasRead(const PostRow& post, bool isScrapPost) {
  read.emplace_back(post.ownerId, isScrapPost);
}

void FakeFrame::RecountUnread(bool ofScrapPosts) {
  recounts.push_back(ofScrapPosts);
  if (onRecount) onRecount(ofScrapPosts);
}

void FakeFrame::ReloadSelection() { ++reloads; }

void FakeFrame::GoToUnreadRow(bool forward) { unreadRowsAsked.push_back(forward); }

}  // namespace feedloom
