#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "store/Rows.h"

namespace feedloom {

// A compact form of a PostRow for lists of up to 200,000 posts. A PostRow takes about 500 bytes
// besides its texts, a PackedPost about 120. It keeps all texts in one block, except the
// description, which is moved because copying it would take longer than everything else. Texts are
// in the module's code page.
class PackedPost {
 public:
  // Moves the description out of `post` and copies the other texts. `storeIndex` is the post's
  // position in the order of the store.
  PackedPost(PostRow&& post, int storeIndex);

  PostRow Unpack() const;
  // As Unpack, but moves the description out, which the post has no longer.
  PostRow Release();

  int Id() const { return isSaved_ ? -id_ : id_; }  // as ListId of ui/PostList.h
  int StoreIndex() const { return storeIndex_; }
  bool IsRead() const { return readStatus_ != 0; }
  void SetReadStatus(int status) { readStatus_ = status; }

  // Views that are valid as long as the post exists, even when it is moved.
  std::string_view Title() const;
  std::string_view Published() const;
  std::string_view OwnerTitle() const;
  std::string_view Description() const { return description_; }

 private:
  static constexpr std::size_t kTextCount = 7;

  PostRow UnpackShort() const;  // without the description
  std::string_view Text(std::size_t number) const;

  std::string description_;
  std::unique_ptr<char[]> texts_;  // the texts without separators, in the order of kTexts
  std::array<std::uint32_t, kTextCount> lengths_;
  int readStatus_;
  int id_;
  int isPodcast_;
  int ownerId_;
  int storeIndex_;
  bool isSaved_;
};

}  // namespace feedloom
