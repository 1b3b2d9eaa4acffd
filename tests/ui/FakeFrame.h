// A frame for the tests of one pane: a real store, the shipped skin, and a record of what the pane
// asked for.
#pragma once

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "exchange/DirectorySearch.h"
#include "ingest/FeedCheckAnswer.h"
#include "kit/ShippedSkin.h"
#include "store/StoreKit.h"
#include "ui/Frame.h"
#include "ui/InterfaceThread.h"

namespace feedloom {

class FakeFrame : public Frame {
 public:
  Store& TheStore() override { return db.Get(); }
  const Skin& TheSkin() const override { return skin.Get(); }
  SharedState& State() override { return state; }
  void ReportMessage(std::string_view text) override { messages.emplace_back(text); }
  MsgBoxAnswer ShowTextMessage(const char*, const char* key, MsgBoxKind kind) override {
    questions.emplace_back(key);
    kinds.push_back(kind);
    if (whileAsking) whileAsking();
    return nextAnswer;
  }
  const Actions& TheActions() const override { return actions; }
  bool IsAnyChannelQueued(std::span<const int> ids) const override {
    return std::ranges::any_of(ids, [&](int id) { return queue.Contains(id); });
  }
  void QueueRefresh(std::vector<RefreshEntry> entries) override {
    for (RefreshEntry& entry : entries) queue.Append(std::move(entry));
  }
  void StartRefresh() override { ++refreshes; }
  void CheckFeed(const std::string& address,
                 std::function<void(const FeedCheckAnswer&)> onAnswer) override {
    checkedAddresses.push_back(address);
    answerCheck = std::move(onAnswer);
  }
  void StopFeedCheck() override { answerCheck = nullptr; }
  std::optional<int> ExportOpml(const std::string& path) override {
    exports.push_back(path);
    return nextExport;
  }
  void ImportOpml(const ListSource& source) override { imports.push_back(source); }
  void MergeOpml(const std::string& path,
                 std::function<void(const std::optional<ImportSums>&)> onEnd) override {
    merges.push_back(path);
    endMerge = std::move(onEnd);
  }
  std::unique_ptr<DirectorySearch> MakeDirectorySearch() override {
    auto services = std::make_shared<IngestServices>(IngestServices{
        db.Shared(), Registry(workFolder.File("registry.reg")), SystemClock(), workFolder.Path()});
    return std::make_unique<DirectorySearch>(
        std::move(services), directoryService,
        [thread = interfaceThread](auto work) { thread->Run(std::move(work)); });
  }
  void FolderWasAdded(const FolderRow& folder) override { addedFolders.push_back(folder); }
  void CabinetWasAdded(const CabinetRow& cabinet) override { addedCabinets.push_back(cabinet); }
  void ChannelWasAdded(const ChannelRow& channel) override { addedChannels.push_back(channel); }
  void ChannelWasMoved(int channelId, int folderId) override {
    moves.emplace_back(channelId, folderId);
  }
  void ListPosts(ListMode mode, PostList list, FirstShown firstShown) override {
    state.listMode = mode;
    state.listShowsSelection = mode == ListMode::Selection && !list.wereSearched;
    lists.push_back(std::move(list));
    firstShowns.push_back(firstShown);
  }
  void RelistPosts(PostList list) override {
    state.listMode = ListMode::Selection;
    state.listShowsSelection = true;
    relists.push_back(std::move(list));
  }
  void FocusSearch() override { ++searchFocuses; }
  void GoToUnreadPost(bool forward) override { unreadPostsAsked.push_back(forward); }
  void ShowPost(const PostRow& post) override { shown.push_back(post.title); }
  void ShowMainPage() override { shown.emplace_back("(main page)"); }
  bool ShowsRemoteImages() const override { return showsRemoteImages; }
  void AddChannel(const std::string& address) override { addedAddresses.push_back(address); }
  void PostIsSaved(int cabinetId) override { savedTo.push_back(cabinetId); }
  void PostWasRead(const PostRow& post, bool isScrapPost) override {
    read.emplace_back(post.ownerId, isScrapPost);
  }
  void RecountUnread(bool ofScrapPosts) override {
    recounts.push_back(ofScrapPosts);
    if (onRecount) onRecount(ofScrapPosts);
  }
  void ReloadSelection() override { ++reloads; }
  void GoToUnreadRow(bool forward) override { unreadRowsAsked.push_back(forward); }

  TestStore db;
  ShippedSkin skin;
  SharedState state;
  Actions actions;
  MsgBoxAnswer nextAnswer = MsgBoxAnswer::Declined;
  std::function<void(bool scrap)> onRecount;  // what the tree would do
  std::function<void()> whileAsking;          // what happens before the answer

  std::vector<std::string> messages;
  std::vector<std::string> questions;  // keys
  std::vector<MsgBoxKind> kinds;       // of the questions
  RefreshQueue queue;
  int refreshes = 0;
  std::vector<std::string> checkedAddresses;
  std::function<void(const FeedCheckAnswer&)> answerCheck;  // of the check that runs
  std::vector<std::string> exports;                         // paths
  std::optional<int> nextExport = 0;                        // channels
  std::vector<ListSource> imports;
  std::vector<std::string> merges;                                 // paths
  std::function<void(const std::optional<ImportSums>&)> endMerge;  // of the latest one
  std::string directoryService;                                    // an address
  TempFolder workFolder;
  std::shared_ptr<InterfaceThread> interfaceThread = std::make_shared<InterfaceThread>();
  std::vector<FolderRow> addedFolders;
  std::vector<CabinetRow> addedCabinets;
  std::vector<ChannelRow> addedChannels;
  std::vector<std::pair<int, int>> moves;  // channel and folder
  std::vector<PostList> lists;
  std::vector<FirstShown> firstShowns;
  std::vector<PostList> relists;
  int searchFocuses = 0;
  std::vector<std::string> shown;  // titles
  bool showsRemoteImages = true;
  std::vector<std::string> addedAddresses;
  std::vector<int> savedTo;  // cabinets
  std::vector<std::pair<int, bool>> read;
  std::vector<bool> recounts;  // whether of saved posts
  int reloads = 0;
  std::vector<bool> unreadPostsAsked;  // whether forward
  std::vector<bool> unreadRowsAsked;   // whether forward
};

}  // namespace feedloom
