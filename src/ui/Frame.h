// What the panes need from the frame that contains them, and from each other: panes call each other
// through this interface only. Interface thread only. Texts are in the module's code page.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/ImportValues.h"
#include "ingest/RefreshQueue.h"
#include "skin/Skin.h"
#include "store/Rows.h"
#include "store/Store.h"
#include "ui/Actions.h"
#include "ui/PostList.h"
#include "ui/SharedState.h"
#include "vxctrl/CMsgBox.h"

namespace feedloom {

class DirectorySearch;
struct FeedCheckAnswer;

// Which post of a new list is shown first.
enum class FirstShown { First, FirstUnread, LastUnread };

class Frame {
 public:
  virtual ~Frame() = default;

  virtual Store& GetStore() = 0;
  virtual const Skin& GetSkin() const = 0;
  virtual SharedState& State() = 0;

  // Passes a status text to the host, which shows it.
  virtual void ReportMessage(std::string_view text) = 0;
  // Passes a status text that tells how far a page has come, the last one of a page with
  // `hasEnded`. It does not replace a failure of the store: that stays on display until the page
  // has ended, or as long as the tree cannot be read.
  virtual void ReportPage(std::string_view text, bool hasEnded) = 0;
  // Shows the host's text with this section and key in a message box and waits for the answer. The
  // frame may be destroyed meanwhile; the answer is then Declined.
  virtual MsgBoxAnswer ShowTextMessage(const char* section, const char* key, MsgBoxKind kind) = 0;

  virtual const Actions& GetActions() const = 0;

  // True when at least one of the channels waits for a refresh or is being refreshed.
  virtual bool IsAnyChannelQueued(std::span<const int> channelIds) const = 0;
  // Appends the channels to the refresh queue. Channels that are already in it are skipped.
  virtual void QueueRefresh(std::vector<RefreshEntry> entries) = 0;
  // Starts refreshing the queued channels; does nothing when the queue is empty.
  virtual void StartRefresh() = 0;

  // Checks on another thread whether `address` leads to a feed, and calls `onAnswer` with the
  // result on the interface thread. At most one check runs: `onAnswer` is not called after the
  // next CheckFeed, after StopFeedCheck, or once the frame is closing.
  virtual void CheckFeed(const std::string& address,
                         std::function<void(const FeedCheckAnswer&)> onAnswer) = 0;
  virtual void StopFeedCheck() = 0;

  // Writes the tree's folders and channels as OPML to the file `path`, in the file system's
  // encoding. The file is replaced as a whole or not at all. Returns the number of channels;
  // std::nullopt after a failure, which has been reported to the host. While the tree cannot be
  // read, this and the imports fail.
  virtual std::optional<int> ExportOpml(const std::string& path) = 0;
  // Reads an OPML list on another thread, adds its folders and channels to the store and the tree,
  // and refreshes the new channels. Reports their number to the host, or shows a message when the
  // list cannot be read. Imports run one after another.
  virtual void ImportOpml(const ListSource& source) = 0;
  // Imports the OPML file `path` like ImportOpml, with two differences: channels go into existing
  // folders of the same name, and nothing is reported or shown. `onEnd` is called at the end on
  // the interface thread, with std::nullopt when the list could not be read or not be added whole.
  virtual void MergeOpml(const std::string& path,
                         std::function<void(const std::optional<ImportSums>&)> onEnd) = 0;

  // Returns a new search of the web directory, at the address that the host configures; never null.
  // It delivers no results once the frame is closing.
  virtual std::unique_ptr<DirectorySearch> MakeDirectorySearch() = 0;

  // The dialogs call these after storing a change; the tree updates its rows at once.
  virtual void FolderWasAdded(const FolderRow& folder) = 0;
  virtual void CabinetWasAdded(const CabinetRow& cabinet) = 0;
  virtual void ChannelWasAdded(const ChannelRow& channel) = 0;
  virtual void ChannelWasMoved(int channelId, int folderId) = 0;

  // Fills the post list and sets its mode. Shows the post that `shown` tells, or the main page when
  // there is no such post.
  virtual void ListPosts(ListMode mode, PostList list, FirstShown shown = FirstShown::First) = 0;
  // Updates the post list with the posts of the tree's selection, read again from the store. The
  // list keeps its scroll position and the browser its page.
  virtual void RelistPosts(PostList list) = 0;
  // Moves the keyboard focus to the search box.
  virtual void FocusSearch() = 0;
  // Shows the next unread post of the list, the previous one when `forward` is false. When the list
  // has none, calls GoToUnreadRow.
  virtual void GoToUnreadPost(bool forward) = 0;

  // Show a post, or the main page, in the browser.
  virtual void ShowPost(const PostRow& post) = 0;
  virtual void ShowMainPage() = 0;

  // True when the preview of a post loads images from the web.
  virtual bool ShowsRemoteImages() const = 0;

  // Opens the dialog that adds a channel, with this feed address and the folder of the tree's
  // selection. The frame may be destroyed meanwhile, and the caller with it.
  virtual void AddChannel(const std::string& address) = 0;
  // Call this when an unread post is being saved to the cabinet: the tree updates its count.
  virtual void PostIsSaved(int cabinetId) = 0;

  // Call this when an unread post was marked read: the tree updates its counts.
  virtual void PostWasRead(const PostRow& post, bool isScrapPost) = 0;
  // Call this when posts, or their read status, have changed: the tree reads its unread counts
  // again from the store. SharedState::unreadTotal is not changed.
  virtual void RecountUnread(bool ofScrapPosts) = 0;
  // Reads the posts of the tree's selection again when the list shows them; otherwise does nothing.
  virtual void ReloadSelection() = 0;
  // Selects the next row of the tree with unread posts and shows its first unread post. When
  // `forward` is false, it is the previous row and its last unread post. Without such a row,
  // nothing happens.
  virtual void GoToUnreadRow(bool forward) = 0;
};

}  // namespace feedloom
