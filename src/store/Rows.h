// The plain values that the store's operations take and return. Texts are in the module's code
// page; dates are texts of the form "%Y-%m-%d %H:%M:%S" (strftime) or empty.
#pragma once

#include <string>
#include <vector>

namespace feedloom {

struct FolderRow {
  std::string name;
  int id = 0;
  int order = 0;  // negative: the user cannot rename or delete it
  int unreadCount = 0;
};

// A subscribed feed. An operation sets what it reads.
struct Channel {
  int id = -1;  // negative: not in the store yet
  int folderId = 0;
  int order = -1;  // negative: the store chooses one
  std::string title = {};
  std::string xmlLink = {};   // the feed's address
  std::string htmlLink = {};  // the site's home page
  std::string type = "rss";   // the kind of the feed
};

struct ChannelRow : Channel {
  int unreadCount = 0;
  int state = 0;  // of the last refresh: 0 done, negative after a failure (ChannelResult)
};

struct CabinetRow {
  int id = 0;
  std::string title;
  int order = 0;
  int unreadCount = 0;
};

// A post of a channel, or a saved post of a cabinet.
struct PostRow {
  int readStatus = 0;  // 0 unread, 1 read
  int id = 0;
  std::string created;
  std::string description;
  std::string link;
  std::string published;
  std::string title;
  std::string updated;
  std::string ownerTitle;    // of the channel or cabinet
  int isPodcast = 0;         // posts only
  int ownerId = 0;           // 0 from operations that do not set it
  std::string feedUrl = {};  // results of the web directory only: the feed that the post stands for
  bool isSaved = false;      // a saved post; set by a search in texts, whose hits are of both kinds
};

// The numbers of posts, and of saved posts.
struct PostIds {
  bool AreEmpty() const { return posts.empty() && saved.empty(); }

  std::vector<int> posts = {};
  std::vector<int> saved = {};
};

struct ChannelWithPosts : Channel {
  std::string created;
  std::string updated;
  std::vector<PostRow> posts;
};

struct CabinetWithPosts {
  std::string created;
  std::string title;
  std::string updated;
  int order = 0;
  std::vector<PostRow> posts;
};

// Who wrote a post, and what it is about: plain texts, a name a line.
struct PostDetails {
  bool AreEmpty() const { return authors.empty() && categories.empty(); }

  std::string authors = {};
  std::string categories = {};
};

// A post to be added to the store.
struct NewPost {
  std::string title = {};
  std::string link = {};
  std::string published = {};
  std::string description = {};
  int isPodcast = 0;
  PostDetails details = {};
  std::string writtenLink = {};  // the link as the feed writes it, when `link` differs; else empty
};

// A channel to be added to the store, with the posts of its feed.
struct ChannelRecord : Channel {
  bool newlyInserted = false;
  std::vector<NewPost> posts = {};
};

}  // namespace feedloom
