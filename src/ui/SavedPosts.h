// Posts that the user saves in a cabinet, by a command or by dragging them there. Interface thread
// only.
#pragma once

#include <QMimeData>
#include <span>
#include <utility>
#include <vector>

#include "store/Rows.h"

namespace feedloom {

class Desk;
class Reading;

// Posts of the list that the user drags. Another process cannot read them: its database has other
// posts with these ids.
class DraggedPosts : public QMimeData {
 public:
  static constexpr char kFormat[] = "application/x-feedloom-posts";

  // `others` are posts that are not in the store.
  DraggedPosts(PostIds stored, std::vector<PostRow> others);

  // The posts, those of the store as they are there now; those that have gone are left out. Empty
  // also after a failure of the store, which it reports.
  std::vector<PostRow> Read(Desk& desk) const;

 private:
  const PostIds stored_;
  const std::vector<PostRow> others_;
};

// Copies the posts into the cabinet in one transaction, and has the counts, and a list of saved
// posts on display, read again. Returns whether all were copied. When the cabinet has gone, the
// status text says so; the store reports its failures.
bool SavePosts(Desk& desk, Reading& reading, int cabinetId, std::span<const PostRow> posts);

}  // namespace feedloom
