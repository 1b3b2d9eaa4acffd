// What the panes need of the frame that holds them. The frame implements it; a pane knows no other
// pane. All of it belongs to the interface thread.
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

// The post of a list that is shown first.
enum class FirstShown { First, FirstUnread, LastUnread };

class Frame {
 public:
  virtual ~Frame() = default;

  virtual Store& GetStore() = 0;
  virtual const Skin& GetSkin() const = 0;
  virtual SharedState& State() = 0;

  // Hands a status text, in the module's code page, to the host, which shows it.
  virtual void ReportMessage(std::string_view text) = 0;
  // Shows a text of the host in the message box and waits for the answer. The frame may be gone
  // when it returns; the answer is Declined then.
  virtual MsgBoxAnswer ShowTextMessage(const char* section, const char* key, MsgBoxKind kind) = 0;

  virtual const Actions& GetActions() const = 0;

  // True while one of the channels waits for a refresh or is being refreshed.
  virtual bool IsAnyChannelQueued(std::span<const int> channelIds) const = 0;
  // Puts the channels into the queue, but for those that are in it already.
  virtual void QueueRefresh(std::vector<RefreshEntry> entries) = 0;
  // Works off the queue; does nothing when it is empty.
  virtual void StartRefresh() = 0;

  // Finds out on another thread whether the address, a text in the module's code page, yields a
  // feed; `onAnswer` is called later, on the interface thread. The next check, StopFeedCheck and
  // the end of the frame's refresh end the one before: its answer is dropped.
  virtual void CheckFeed(const std::string& address,
                         std::function<void(const FeedCheckAnswer&)> onAnswer) = 0;
  virtual void StopFeedCheck() = 0;

  // Writes the tree's folders and channels to `path` (the file system's own bytes) as OPML, whole
  // or not at all. Returns the number of channels; none after a failure, which it has reported.
  virtual std::optional<int> ExportOpml(const std::string& path) = 0;
  // Reads a list on another thread and adds its folders and channels to the store and the tree, one
  // by one, and then refreshes the new channels. Reports how many there are, or shows a message
  // when the list cannot be read. One import after the other.
  virtual void ImportOpml(const ListSource& source) = 0;
  // The same for the list in the file `path`, but folders that are there already are used, and all
  // that is said at the end is `onEnd`, on the interface thread: nothing when it could not be read,
  // or not be added whole.
  virtual void MergeOpml(const std::string& path,
                         std::function<void(const std::optional<ImportSums>&)> onEnd) = 0;

  // A search of the web directory at the host's address; never null. Its answers come as long as
  // the frame's refresh is not ended.
  virtual std::unique_ptr<DirectorySearch> MakeDirectorySearch() = 0;

  // From the dialogs to the tree: what they have put into the store gets its row at once.
  virtual void FolderWasAdded(const FolderRow& folder) = 0;
  virtual void CabinetWasAdded(const CabinetRow& cabinet) = 0;
  virtual void ChannelWasAdded(const ChannelRow& channel) = 0;
  virtual void ChannelWasMoved(int channelId, int folderId) = 0;

  // To the list: fills it, in this mode, and shows the post to be shown first, or the main page
  // when there is none.
  virtual void ListPosts(ListMode mode, PostList list, FirstShown shown = FirstShown::First) = 0;
  // The posts of the tree's selection, read again: the list keeps its place, the page stays.
  virtual void RelistPosts(PostList list) = 0;
  // The keyboard goes to the search box.
  virtual void FocusSearch() = 0;
  // Shows the next unread post of the list, or the previous one; when it has none, GoToUnreadRow.
  virtual void GoToUnreadPost(bool forward) = 0;

  // From the list to the browser.
  virtual void ShowPost(const PostRow& post) = 0;
  virtual void ShowMainPage() = 0;

  // Whether a preview shows the pictures that lie in the web.
  virtual bool ShowsRemoteImages() const = 0;

  // From the browser to the tree: the dialog that adds a channel, with this feed address and the
  // folder of the tree's selection. The caller may be gone when it returns.
  virtual void AddChannel(const std::string& address) = 0;
  // The same: an unread post is being saved to this cabinet. The tree shows it at once.
  virtual void PostIsSaved(int cabinetId) = 0;

  // From the list to the tree: an unread post was marked read.
  virtual void PostWasRead(const PostRow& post, bool isScrapPost) = 0;
  // The read status of posts, or posts, have changed: the tree reads its counts again. The unread
  // total of the shared state stays.
  virtual void RecountUnread(bool ofScrapPosts) = 0;
  // Reads the posts of the tree's selection again, when it is these that the list shows.
  virtual void ReloadSelection() = 0;
  // Selects the next row behind the tree's selection (or before it) that has unread posts, and
  // shows its first (or last) unread one; nothing when there is none.
  virtual void GoToUnreadRow(bool forward) = 0;
};

}  // namespace feedloom
