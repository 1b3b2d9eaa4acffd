// What the panes need of the frame that holds them. The frame implements it; a pane knows no other
// pane. All of it belongs to the interface thread.
#pragma once

#include <string_view>
#include <vector>

#include "ingest/RefreshQueue.h"
#include "skin/Skin.h"
#include "store/Rows.h"
#include "store/Store.h"
#include "ui/SharedState.h"
#include "vxctrl/CMsgBox.h"

namespace feedloom {

// The posts that the list shows, all of one kind.
struct PostList {
  std::vector<PostRow> posts;  // in the order to show them; ownerId says whose they are
  bool areScrapPosts = false;  // saved posts of cabinets, not posts of channels
};

class Frame {
 public:
  virtual ~Frame() = default;

  virtual Store& TheStore() = 0;
  virtual const Skin& TheSkin() const = 0;
  virtual SharedState& State() = 0;

  // Hands a status text, in the module's code page, to the host, which shows it.
  virtual void ReportMessage(std::string_view text) = 0;
  // Shows a text of the host in the message box and waits for the answer. The frame may be gone
  // when it returns; the answer is Declined then.
  virtual MsgBoxAnswer ShowTextMessage(const char* section, const char* key, MsgBoxKind kind) = 0;

  // Puts the channels into the queue, but for those that are in it already.
  virtual void QueueRefresh(std::vector<RefreshEntry> entries) = 0;
  // Works off the queue; does nothing when it is empty.
  virtual void StartRefresh() = 0;

  // From the tree to the list: fills it, in this mode, and shows its first post, or the main page
  // when there is none.
  virtual void ListPosts(ListMode mode, PostList list) = 0;
  // The same posts with what a refresh has brought: the list keeps its place, the page stays.
  virtual void RelistPosts(PostList list) = 0;

  // From the list to the browser.
  virtual void ShowPost(const PostRow& post) = 0;
  virtual void ShowMainPage() = 0;

  // From the list to the tree: an unread post of the channel, or cabinet, was marked read.
  virtual void PostWasRead(int ownerId, bool isScrapPost) = 0;
};

}  // namespace feedloom
