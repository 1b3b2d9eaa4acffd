// A frame for the tests of one pane: a real store, the shipped skin, and a record of what the pane
// asked for. What it does by itself is in the source file: many tests are compiled with it.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "exchange/DirectorySearch.h"
#include "kit/ShippedSkin.h"
#include "store/StoreKit.h"
#include "ui/Frame.h"
#include "ui/InterfaceThread.h"

namespace feedloom {

class FakeFrame : public Frame {
 public:
  FakeFrame();
  ~FakeFrame() override;

  Store& GetStore() override;
  const Skin& GetSkin() const override;
  SharedState& State() override;
  void ReportMessage(std::string_view text) override;
  MsgBoxAnswer ShowTextMessage(const char*, const char* key, MsgBoxKind kind) override;
  const Actions& GetActions() const override;
  bool IsAnyChannelQueued(std::span<const int> ids) const override;
  void QueueRefresh(std::vector<RefreshEntry> entries) override;
  void StartRefresh() override;
  void CheckFeed(const std::string& address,
                 std::function<void(const FeedCheckAnswer&)> onAnswer) override;
  void StopFeedCheck() override;
  std::optional<int> ExportOpml(const std::string& path) override;
  void ImportOpml(const ListSource& source) override;
  void MergeOpml(const std::string& path,
                 std::function<void(const std::optional<ImportSums>&)> onEnd) override;
  std::unique_ptr<DirectorySearch> MakeDirectorySearch() override;
  void FolderWasAdded(const FolderRow& folder) override;
  void CabinetWasAdded(const CabinetRow& cabinet) override;
  void ChannelWasAdded(const ChannelRow& channel) override;
  void ChannelWasMoved(int channelId, int folderId) override;
  void ListPosts(ListMode mode, PostList list, FirstShown firstShown) override;
  void RelistPosts(PostList list) override;
  void FocusSearch() override;
  void GoToUnreadPost(bool forward) override;
  void ShowPost(const PostRow& post) override;
  void ShowMainPage() override;
  bool ShowsRemoteImages() const override;
  void AddChannel(const std::string& address) override;
  void PostIsSaved(int cabinetId) override;
  void PostWasRead(const PostRow& post, bool isScrapPost) override;
  void RecountUnread(bool ofScrapPosts) override;
  void ReloadSelection() override;
  void GoToUnreadRow(bool forward) override;

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
