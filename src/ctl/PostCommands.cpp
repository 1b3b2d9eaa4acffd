// feedloomctl mark, delete, clip and cleanup: change the stored posts.
#include <fmt/core.h>

#include <algorithm>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Selection.h"
#include "ctl/Session.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"

namespace feedloom {
namespace {

// Returns whether all rows of `targets` exist; prints an error otherwise. A command asks first, so
// that it changes either all of them or none.
bool AllExist(Store& store, const Targets& targets) {
  return std::ranges::all_of(targets.posts,
                             [&](int id) { return FindNamedPost(store, id).has_value(); }) &&
         (targets.channels.empty() || FindChannels(store, targets.channels)) &&
         (targets.folders.empty() || FindFolders(store, targets.folders));
}

int Done(const Session& session, std::string_view what) {
  if (session.WantsJson()) {
    PrintJson({{"done", what}});
  } else {
    PrintLine(what);
  }
  return session.Finish(kSuccess);
}

// Returns whether all these folders exist and may be deleted; prints an error otherwise.
bool AreDeletable(Store& store, const std::vector<int>& folderIds) {
  if (folderIds.empty()) return true;
  const auto folders = FindFolders(store, folderIds);
  if (!folders) return false;
  const auto kept = std::ranges::find_if(*folders, [](const auto& row) { return row.order < 0; });
  if (kept == folders->end()) return true;
  PrintError(fmt::format("folder {} is protected", kept->id));
  return false;
}

}  // namespace

int RunMark(Session& session, bool read, const Targets& targets) {
  Store& store = session.GetStore();
  if (!AllExist(store, targets)) return kFailure;
  const int status = read ? 1 : 0;
  const bool marked =
      (targets.posts.empty() || MarkPostsRead(store, status, targets.posts)) &&
      (targets.channels.empty() || MarkChannelsRead(store, status, targets.channels)) &&
      (targets.folders.empty() || MarkFoldersRead(store, status, targets.folders));
  return marked ? Done(session, read ? "marked read" : "marked unread") : kFailure;
}

int RunDelete(Session& session, const Targets& targets) {
  Store& store = session.GetStore();
  if (!AllExist(store, {targets.posts, targets.channels, {}})) return kFailure;
  if (!AreDeletable(store, targets.folders)) return kFailure;
  if (!targets.posts.empty() && !DeletePosts(store, targets.posts)) return kFailure;
  for (const int id : targets.channels) {
    if (!DeleteChannel(store, id)) return kFailure;
  }
  for (const int id : targets.folders) {
    if (!DeleteFolder(store, id)) return kFailure;
  }
  return Done(session, "deleted");
}

int RunClip(Session& session, int postId, int cabinetId) {
  Store& store = session.GetStore();
  const auto post = FindNamedPost(store, postId);
  if (!post || !FindCabinet(store, cabinetId)) return kFailure;
  const int id = InsertScrapPost(store, cabinetId, post->title, post->link, post->published,
                                 post->description);
  return id > 0 ? Done(session, "clipped") : kFailure;
}

int RunCleanup(Session& session, int days) {
  const std::optional<int> deleted = DeleteOldPosts(session.GetStore(), days);
  if (!deleted) return kFailure;
  if (session.WantsJson()) {
    PrintJson({{"deleted", *deleted}});
  } else {
    const std::string range =
        days == 0 ? "" : fmt::format(" stored {} ago or earlier", Counted(days, "day"));
    PrintLine(fmt::format("deleted {}{}", Counted(*deleted, "post"), range));
  }
  return session.Finish(kSuccess);
}

}  // namespace feedloom
