// What a pane or a dialog meets in its tests: a real store, the shipped skin, and a record of what
// is asked for. A test takes the parts that its pane takes.
#pragma once

#include "exchange/DirectorySearch.h"
#include "kit/ShippedSkin.h"
#include "store/StoreKit.h"
#include "ui/Desk.h"
#include "ui/InterfaceThread.h"
#include "ui/Reading.h"
#include "ui/Refreshing.h"
#include "ui/Subscribing.h"
#include "ui/UndoableSteps.h"

namespace feedloom {

struct FakeDesk : Desk {
  Store& GetStore() override { return db.Get(); }
  const Skin& GetSkin() const override { return *shownSkin; }
  SharedState& State() override { return state; }
  BackgroundJobs::Post ToInterfaceThread() override {
    return [this](auto work) { ownThread.Queue(std::move(work)); };
  }
  UndoableSteps& Steps() override { return steps; }
  void ReportMessage(std::string_view text) override { messages.emplace_back(text); }
  void MarkFailure() override {}
  void ReportPage(std::string_view text, bool) override { messages.emplace_back(text); }
  MsgBoxAnswer ShowTextMessage(const char*, const char* key, MsgBoxKind) override {
    questions.emplace_back(key);
    if (whileAsking) whileAsking();
    return nextAnswer;
  }
  MsgBoxAnswer Ask(const char* key, std::string_view more, MsgBoxKind kind) override {
    askedMore = more;
    return ShowTextMessage(kSectionTexts, key, kind);
  }

  InterfaceThread ownThread;
  TestStore db;
  ShippedSkin skin;
  const Skin* shownSkin = &skin.Get();
  Settings liveSettings;
  SharedState state{liveSettings};
  MsgBoxAnswer nextAnswer = MsgBoxAnswer::Declined;
  UndoableSteps steps{*this, {}};
  std::function<void()> whileAsking;
  std::vector<std::string> messages, questions;  // texts, keys
  std::string askedMore;                         // below the latest question
};

struct FakeRefreshing : Refreshing {
  using CheckEnd = std::function<void(const FeedCheckAnswer&)>;

  bool IsAnyChannelQueued(std::span<const int> ids) const override {
    return std::ranges::any_of(ids, [&](int id) { return queue.Contains(id); });
  }
  void QueueRefresh(std::vector<Channel> entries) override {
    for (Channel& entry : entries) queue.Append(std::move(entry));
  }
  void StartRefresh() override { ++refreshes; }
  FeedVisit LastVisit(const Channel& channel) const override {
    const auto visit = visits.find(channel.id);
    return visit == visits.end() ? FeedVisit{channel.xmlLink} : visit->second;
  }
  OwnPeriods Periods() const override { return periods; }
  bool SetPeriod(const std::string& address, std::chrono::minutes period) override {
    return periods[address] = period, true;
  }
  void CheckFeed(const std::string& address, const std::optional<GivenLogin>& login,
                 CheckEnd onAnswer) override {
    checked.push_back(address);
    if (login) given.push_back(login->origin + " " + login->login.name + login->login.password);
    answerCheck = std::move(onAnswer);
  }
  void StopFeedCheck() override { answerCheck = nullptr; }

  RefreshQueue queue;
  FeedVisits visits;
  OwnPeriods periods;
  int refreshes = 0;
  std::vector<std::string> checked, given;  // addresses, logins
  CheckEnd answerCheck;                     // of the check that runs
};

struct FakeSubscribing : Subscribing {
  explicit FakeSubscribing(FakeDesk& theDesk) : desk(theDesk) {}
  void FolderWasAdded(const FolderRow& row) override { added.emplace_back(row.name, row.order); }
  void CabinetWasAdded(const CabinetRow& row) override { added.emplace_back(row.title, row.order); }
  void ChannelWasAdded(const ChannelRow& channel) override { addedChannels.push_back(channel); }
  void ChannelWasMoved(int channel, int folder) override { moves.emplace_back(channel, folder); }
  void AddChannel(const std::string& address) override { addedAddresses.push_back(address); }
  std::unique_ptr<DirectorySearch> MakeDirectorySearch() override {
    FetchServices services{desk.db.Shared(), Registry(workFolder.File("registry.reg")),
                           SystemClock(), workFolder.Path()};
    return std::make_unique<DirectorySearch>(
        std::make_shared<FetchServices>(std::move(services)), directoryService,
        [thread = interfaceThread](auto work) { thread->Queue(std::move(work)); });
  }
  bool CanExchange() const override { return nextExport.has_value(); }
  std::optional<int> ExportOpml(const std::string& path) override {
    return exchanged.push_back(path), nextExport;
  }
  void ImportOpml(const ListSource& source) override { exchanged.push_back(source.place); }
  void Synchronise(std::function<void(const SyncEnd&)> onEnd) override {
    endSynchronisation = std::move(onEnd);
  }

  FakeDesk& desk;
  TempFolder workFolder;
  std::shared_ptr<InterfaceThread> interfaceThread = std::make_shared<InterfaceThread>();
  std::string directoryService;  // its address
  std::optional<int> nextExport = 0;
  std::function<void(const SyncEnd&)> endSynchronisation;
  std::vector<std::string> addedAddresses, exchanged;  // addresses, files to export and import
  std::vector<std::pair<std::string, int>> added;      // folders and cabinets: name and order
  std::vector<ChannelRow> addedChannels;
  std::vector<std::pair<int, int>> moves;  // channel and folder
};

struct FakeReading : Reading {
  explicit FakeReading(SharedState& theState) : shared(theState) {}
  void ListPosts(ListMode mode, PostList list, FirstPost first) override {
    shared.SetListed(mode, list.areSearchResults);
    lists.push_back(std::move(list));
    firstPosts.push_back(first);
  }
  void RelistPosts(PostList list) override {
    shared.SetListed(ListMode::Selection, false);
    relists.push_back(std::move(list));
  }
  void ReloadSelection() override { ++reloads; }
  void ShowPost(const PostRow& post) override { shown.push_back(post.title); }
  void ShowMainPage() override { shown.emplace_back("(main page)"); }
  void ShowWebPage(const std::string& address) override { shown.push_back(address); }
  void GoToUnreadRow(bool forward) override { unreadRowsAsked.push_back(forward); }
  void PostWasRead(const PostRow& row, bool kept) override { read.emplace_back(row.ownerId, kept); }
  void UnreadPostWasSaved(int cabinetId) override { savedTo.push_back(cabinetId); }
  void RecountUnread(bool ofScrapPosts) override {
    recounts.push_back(ofScrapPosts);
    if (onRecount) onRecount(ofScrapPosts);
  }

  void ShowUndone(const std::optional<UndoableRow>&, const PostIds&) override {}

  SharedState& shared;
  std::function<void(bool ofScrapPosts)> onRecount;
  std::vector<PostList> lists, relists;
  std::vector<FirstPost> firstPosts;
  std::vector<std::string> shown;          // titles
  std::vector<std::pair<int, bool>> read;  // owner, and whether the post is a saved one
  std::vector<int> savedTo;
  std::vector<bool> recounts, unreadRowsAsked;
  int reloads = 0;
};

struct FakeFrame : FakeDesk, FakeRefreshing, FakeSubscribing, FakeReading {
  FakeFrame() : FakeSubscribing(static_cast<FakeDesk&>(*this)), FakeReading(state) {}
};

}  // namespace feedloom
