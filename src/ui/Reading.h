// The reading of posts: the list, the page, and what is still unread.
#pragma once

#include <optional>
#include <string>

#include "store/Rows.h"
#include "ui/PostList.h"
#include "ui/SharedState.h"

namespace feedloom {

struct UndoableRow;

// Which post of a new list is shown first, and marked read; of a Glimpse, the first one, which is
// marked read when the user turns to it.
enum class FirstPost { First, FirstUnread, LastUnread, Glimpse };

// Interface thread only.
class Reading {
 public:
  virtual ~Reading() = default;

  // Fills the post list and sets its mode. Shows the post that `shown` tells, or the main page when
  // there is no such post.
  virtual void ListPosts(ListMode mode, PostList list, FirstPost shown = FirstPost::First) = 0;
  // Updates the post list with the posts of the tree's selection, read again from the store. The
  // list keeps its scroll position and the browser its page.
  virtual void RelistPosts(PostList list) = 0;
  // Reads the posts of the tree's selection again when the list shows them, otherwise those of the
  // list's rows, if they are of the store.
  virtual void ReloadSelection() = 0;

  // Show a post, or the main page, in the browser. While the list says itself that it has no posts,
  // an empty page stands for the main page.
  virtual void ShowPost(const PostRow& post) = 0;
  virtual void ShowMainPage() = 0;
  // Shows the web page at `address` (ASCII, http or https) in the browser, or in the system's where
  // the host wishes for that.
  virtual void ShowWebPage(const std::string& address) = 0;

  // Selects the next row of the tree with unread posts and shows its first unread post. When
  // `forward` is false, it is the previous row and its last unread post. Without such a row,
  // nothing happens.
  virtual void GoToUnreadRow(bool forward) = 0;
  // Call this when an unread post was marked read: the tree updates its counts.
  virtual void PostWasRead(const PostRow& post, bool isScrapPost) = 0;
  // Call this when an unread post is being saved to the cabinet: the tree updates its count.
  virtual void UnreadPostWasSaved(int cabinetId) = 0;
  // Call this when posts, or their read status, have changed: the tree reads its unread counts
  // again from the store. SharedState::unreadTotal is not changed.
  virtual void RecountUnread(bool ofScrapPosts) = 0;
  // Call this when a step was undone: tree and list read again what they show. `row`, a row of the
  // tree that has come back, is selected, and its posts listed. `posts` come back into a list that
  // is not of the tree's selection. No post is shown or marked read.
  virtual void ShowUndone(const std::optional<UndoableRow>& row, const PostIds& posts) = 0;
};

}  // namespace feedloom
