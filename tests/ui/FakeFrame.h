// A frame for the tests of one pane: a real store, the shipped skin, a record of what is asked for.
#pragma once

#include "exchange/DirectorySearch.h"
#include "kit/ShippedSkin.h"
#include "store/StoreKit.h"
#include "ui/Frame.h"
#include "ui/InterfaceThread.h"

namespace feedloom {

struct FakeFrame : Frame {
  using CheckEnd = std::function<void(const FeedCheckAnswer&)>;
  using MergeEnd = std::function<void(const std::optional<ImportSums>&)>;

  Store& GetStore() override { return db.Get(); }
  const Skin& GetSkin() const override { return *shownSkin; }
  SharedState& State() override { return state; }
  void ReportMessage(std::string_view text) override { messages.emplace_back(text); }
  void ReportPage(std::string_view text, bool) override { messages.emplace_back(text); }
  MsgBoxAnswer ShowTextMessage(const char*, const char* key, MsgBoxKind) override {
    questions.emplace_back(key);
    if (whileAsking) whileAsking();
    return nextAnswer;
  }
  const Actions& GetActions() const override { return actions; }
  bool IsAnyChannelQueued(std::span<const int> ids) const override {
    return std::ranges::any_of(ids, [&](int id) { return queue.Contains(id); });
  }
  void QueueRefresh(std::vector<RefreshEntry> entries) override {
    for (RefreshEntry& entry : entries) queue.Append(std::move(entry));
  }
  void StartRefresh() override { ++refreshes; }
  void CheckFeed(const std::string& address, CheckEnd onAnswer) override {
    asked.push_back(address);
    answerCheck = std::move(onAnswer);
  }
  void StopFeedCheck() override { answerCheck = nullptr; }
  std::optional<int> ExportOpml(const std::string& path) override {
    return asked.push_back(path), nextExport;
  }
  void ImportOpml(const ListSource&) override {}
  void MergeOpml(const std::string& path, MergeEnd onEnd) override {
    asked.push_back(path);
    endMerge = std::move(onEnd);
  }
  std::unique_ptr<DirectorySearch> MakeDirectorySearch() override {
    IngestServices services{db.Shared(), Registry(workFolder.File("registry.reg")), SystemClock(),
                            workFolder.Path()};
    return std::make_unique<DirectorySearch>(
        std::make_shared<IngestServices>(std::move(services)), directoryService,
        [thread = interfaceThread](auto work) { thread->Queue(std::move(work)); });
  }
  void FolderWasAdded(const FolderRow& row) override { added.emplace_back(row.name, row.order); }
  void CabinetWasAdded(const CabinetRow& row) override { added.emplace_back(row.title, row.order); }
  void ChannelWasAdded(const ChannelRow& channel) override { addedChannels.push_back(channel); }
  void ChannelWasMoved(int channel, int folder) override { moves.emplace_back(channel, folder); }
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
  void PostWasRead(const PostRow& row, bool kept) override { read.emplace_back(row.ownerId, kept); }
  void RecountUnread(bool ofScrapPosts) override {
    recounts.push_back(ofScrapPosts);
    if (onRecount) onRecount(ofScrapPosts);
  }
  void ReloadSelection() override { ++reloads; }
  void GoToUnreadRow(bool forward) override { unreadRowsAsked.push_back(forward); }

  TestStore db;
  ShippedSkin skin;
  const Skin* shownSkin = &skin.Get();
  TempFolder workFolder;
  Settings liveSettings;
  SharedState state{liveSettings};
  Actions actions;
  RefreshQueue queue;
  std::shared_ptr<InterfaceThread> interfaceThread = std::make_shared<InterfaceThread>();

  MsgBoxAnswer nextAnswer = MsgBoxAnswer::Declined;
  std::optional<int> nextExport = 0;
  bool showsRemoteImages = true;
  std::function<void()> whileAsking;
  std::function<void(bool ofScrapPosts)> onRecount;
  CheckEnd answerCheck;  // of the check that runs
  MergeEnd endMerge;     // of the latest import

  // In order: texts, keys, addresses to check and files to export and import, addresses, titles.
  std::vector<std::string> messages, questions, asked, addedAddresses, shown;
  std::string directoryService;                    // its address
  std::vector<std::pair<std::string, int>> added;  // folders and cabinets: name and order
  std::vector<ChannelRow> addedChannels;
  std::vector<std::pair<int, int>> moves;  // channel and folder
  std::vector<std::pair<int, bool>> read;  // owner, and whether the post is a saved one
  std::vector<PostList> lists, relists;
  std::vector<FirstShown> firstShowns;
  std::vector<int> savedTo;
  std::vector<bool> recounts, unreadPostsAsked, unreadRowsAsked;
  int refreshes = 0, searchFocuses = 0, reloads = 0;
};

}  // namespace feedloom
