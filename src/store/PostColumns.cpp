#include "store/PostColumns.h"

namespace feedloom {

void AppendPosts(const ResultTable& table, const PostLayout& layout, std::vector<PostRow>& out) {
  out.reserve(out.size() + static_cast<std::size_t>(table.Rows()));
  for (int row = 0; row < table.Rows(); ++row) {
    int column = layout.first;
    PostRow& post = out.emplace_back();
    post.readStatus = table.Int(row, column++);
    post.id = table.Int(row, column++);
    post.created = table.Text(row, column++);
    post.description = table.Text(row, column++);
    post.link = table.Text(row, column++);
    post.published = table.Text(row, column++);
    post.title = table.Text(row, column++);
    post.updated = table.Text(row, column++);
    post.ownerTitle = table.Text(row, column);
    if (layout.podcast) post.isPodcast = table.Int(row, *layout.podcast);
    if (layout.ownerId) post.ownerId = table.Int(row, *layout.ownerId);
  }
}

}  // namespace feedloom
