// The main frame: the module's window in its host. It puts the panes together with what works for
// them, and passes on what they ask for, and the messages of the host and of the refresh.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/VxSplitter.h"
#include "fetch/FetchServices.h"
#include "shell/FrameDrops.h"
#include "shell/FrameRefresh.h"
#include "shell/HostNews.h"
#include "shell/ModulePaths.h"
#include "shell/NewPostNotice.h"
#include "shell/StatusLine.h"
#include "shell/UndoHooks.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/Subscribing.h"
#include "ui/browser/BrowserServices.h"

namespace feedloom {

class Arrivals;
class ChannelNotice;
class CRSS_LeftContainer;
class CRSS_RightBottomContainer;
class CRSS_RightTopContainer;
class FirstReading;
class FrameMemory;
class PaneSizes;
class ReadingRetry;
class SiteIconKeeper;
class TextIndexer;
class SubscriptionExchange;
struct FirstContent;
struct KeptView;
struct WriteMark;

// Belongs to the interface thread. `parent` of the constructor owns the frame and receives the
// status texts; its top-level window receives the messages about the refresh.
class CRSS_MainFrame : public VxSplitter, public Desk, public Subscribing, public Reading {
  Q_OBJECT

 public:
  // Builds the panes, reads the stored settings, deletes old posts when the settings want it, fills
  // the tree and shows the main page. A store that cannot be read is reported to the host; the tree
  // is filled when it can be. An exception leaves no pane, and no post was deleted when it came
  // before the panes stood.
  // `liveSettings`, which become SharedState's, and `kept` must outlive the frame. `kept` is what
  // the frame before has shown, and is shown again; at its end the frame leaves there what it has
  // shown itself.
  CRSS_MainFrame(HostLookup lookup, const ModulePaths& paths, Settings& liveSettings,
                 std::optional<KeptView>& kept, QWidget* parent);

  // Stops the refresh, the import and the feed check, and backs the database up.
  ~CRSS_MainFrame() override;

  // Stops the refresh, the import and the feed check for good. Tells the host that the refresh has
  // ended if the host was told that it began. To be called while the host's window still exists.
  void EndRefresh();

  // Handles the message `number` (a Message; others are ignored), and returns its answer.
  std::intptr_t OnMessage(unsigned number, std::intptr_t wParam, std::intptr_t lParam);

  // Shows the control panel and returns when it is closed. Confirmed settings are stored and
  // applied. Does nothing while the panel is open.
  void OpenControlPanel();
  // Makes `settings` the live ones: restarts the timers and redraws the page. Modes become 0 or 1.
  void ApplyPanelSettings(const Settings& settings);

  // Shows the dialog of filters, where the host wishes for it, and returns when it is closed. Does
  // nothing while a dialog is open.
  void OpenFilters();

  // Shows only unread posts in tree and list, or all, and tells the host.
  void ShowUnreadOnly(bool isOn);

  // Announces the posts that have arrived since the last announcement; a click on it lists today's.
  // Does nothing in a host that has them announced by their channels (HostConfig).
  void ShowNewPostNotification();

  Store& GetStore() override { return *store_; }
  const Skin& GetSkin() const override { return skin_; }
  SharedState& State() override { return state_; }
  BackgroundJobs::Post ToInterfaceThread() override;
  UndoableSteps& Steps() override { return steps_; }
  void ReportMessage(std::string_view text) override { status_.Report(text); }
  void MarkFailure() override { status_.MarkFailure(); }
  void ReportPage(std::string_view text, bool hasEnded) override {
    status_.ReportPage(text, hasEnded);
  }
  MsgBoxAnswer ShowTextMessage(const char* section, const char* key, MsgBoxKind kind) override;
  MsgBoxAnswer Ask(const char* key, std::string_view more, MsgBoxKind kind) override;

  void FolderWasAdded(const FolderRow& folder) override;
  void CabinetWasAdded(const CabinetRow& cabinet) override;
  void ChannelWasAdded(const ChannelRow& channel) override;
  void ChannelWasMoved(int channelId, int folderId) override;
  void AddChannel(const std::string& address) override;
  std::unique_ptr<DirectorySearch> MakeDirectorySearch() override;
  bool CanExchange() const override { return status_.IsTreeRead(); }
  std::optional<int> ExportOpml(const std::string& path) override;
  void ImportOpml(const ListSource& source) override;
  void Synchronise(std::function<void(const SyncEnd&)> onEnd) override;

  void ListPosts(ListMode mode, PostList list, FirstPost shown) override;
  void RelistPosts(PostList list) override;
  void ReloadSelection() override;
  void ShowPost(const PostRow& post) override;
  void ShowMainPage() override;
  void ShowWebPage(const std::string& address) override;
  void GoToUnreadRow(bool forward) override;
  void PostWasRead(const PostRow& post, bool isScrapPost) override;
  void UnreadPostWasSaved(int cabinetId) override;
  void RecountUnread(bool ofScrapPosts) override;
  void ShowUndone(const std::optional<UndoableRow>& row, const PostIds& posts) override;

 signals:
  // The browser has drawn the page that was requested last.
  void PageShown();

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void BuildPanes();
  void PlaceList();
  void ShowListPlace(bool isBeside);
  void ConnectTree();
  void TurnToPost(const QWidget* before, const QWidget* focus);
  void SetUpKeys(VxSplitter& right);
  void BeginLife(FirstReading& reading, const WriteMark& mark);
  void ShowStart(FirstContent start);
  void RetryStart();
  void TakeDown();
  void SetPreviewMode();
  void StopRefresh();
  void EndImport(bool isRead);
  bool OpenContent(std::intptr_t content);
  std::optional<int> UnreadCount() const;
  void OnRunEnded();
  void TellHost(unsigned number, std::intptr_t wParam, std::intptr_t lParam);
  void SetRefreshBusy(bool busy);
  void TellIndexed(int percent);

  const std::shared_ptr<InterfaceThread> interfaceThread_;
  const Registry registry_;
  const Skin skin_;
  const std::shared_ptr<Store> store_;
  const SharedServices services_;
  Settings settings_;  // stored when the frame was made, or confirmed since
  SharedState state_;
  const BrowserServices browserServices_{MakeBrowserServices(*this, registry_, this)};
  StatusLine status_{*this};
  NewPostNotice notice_{*this};
  FrameDrops drops_{*this, *this, *this};
  HostNews news_{*this, *this, *this, [this] { return UnreadCount(); }};
  UndoableSteps steps_{*this, UndoHooks(status_, *this)};
  FrameRefresh refresh_{interfaceThread_, services_,
                        [this](unsigned number, std::intptr_t wParam, std::intptr_t lParam) {
                          return OnMessage(number, wParam, lParam);
                        },
                        [this](unsigned number, std::intptr_t wParam, std::intptr_t lParam) {
                          TellHost(number, wParam, lParam);
                          return std::intptr_t{0};
                        }};
  std::unique_ptr<SubscriptionExchange> exchange_;  // null after StopRefresh, as the next
  std::unique_ptr<ReadingRetry> retry_;             // only while the tree is not read
  std::unique_ptr<SiteIconKeeper> icons_;           // as exchange_
  std::unique_ptr<TextIndexer> indexer_;  // null unless the host wants it, and as exchange_
  std::optional<KeptView>& kept_;
  std::unique_ptr<PaneSizes> sizes_;  // null until the panes stand, as the next
  std::unique_ptr<FrameMemory> memory_;
  bool isPanelOpen_ = false;
  bool hostShowsBusy_ = false;  // the host was told of a refresh's begin and not yet of its end
  std::unique_ptr<Arrivals> arrivals_;
  std::unique_ptr<ChannelNotice> channelNotice_;  // null unless the host asks for it

  CRSS_LeftContainer* left_ = nullptr;
  CRSS_RightTopContainer* rightTop_ = nullptr;
  CRSS_RightBottomContainer* rightBottom_ = nullptr;
  VxSplitter* right_ = nullptr;  // the list and the browser
};

}  // namespace feedloom
