#include "ui/SavedPosts.h"

#include "skin/Labels.h"
#include "store/Cabinets.h"
#include "store/PostLists.h"
#include "ui/Desk.h"
#include "ui/Reading.h"

namespace feedloom {

DraggedPosts::DraggedPosts(PostIds stored, std::vector<PostRow> others)
    : stored_(std::move(stored)), others_(std::move(others)) {
  setData(kFormat, {});
}

std::vector<PostRow> DraggedPosts::Read(Desk& desk) const {
  std::vector<PostRow> posts = others_;
  (void)FindPosts(desk.GetStore(), stored_, posts);
  return posts;
}

bool SavePosts(Desk& desk, Reading& reading, int cabinetId, std::span<const PostRow> posts) {
  if (posts.empty()) return false;
  const auto saved = InsertScrapPosts(desk.GetStore(), cabinetId, posts);
  if (!saved) desk.ReportMessage(GetLabel(desk.GetSkin(), kLabelDropGone));
  if (saved.value_or(0) <= 0) return false;
  reading.RecountUnread(true);
  reading.ReloadSelection();
  return *saved == static_cast<int>(posts.size());
}

}  // namespace feedloom
