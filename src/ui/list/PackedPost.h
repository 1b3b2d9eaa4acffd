#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "store/Rows.h"

namespace feedloom {

// A post as the list keeps it. A list may be very long, and a PostRow takes some 500 bytes beside
// the bytes of its texts; this takes some 120, because it has them in one block, all but the
// description: copying that for every post takes longer than all the rest.
class PackedPost {
 public:
  // Takes the description out of `post`; the other texts stay there too. `place` is the post's
  // number in the order in which the store gave it.
  PackedPost(PostRow&& post, int place);

  PostRow Unpack() const;

  int Id() const { return id_; }
  int Place() const { return place_; }
  bool IsRead() const { return readStatus_ != 0; }
  void SetReadStatus(int status) { readStatus_ = status; }

  // Valid as long as the post; moving it does not matter.
  std::string_view Title() const;
  std::string_view Published() const;
  std::string_view OwnerTitle() const;

 private:
  static constexpr std::size_t kTextCount = 7;

  std::string_view Text(std::size_t number) const;

  std::string description_;
  std::unique_ptr<char[]> texts_;  // one behind the other
  std::array<std::uint32_t, kTextCount> lengths_;
  int readStatus_;
  int id_;
  int isPodcast_;
  int ownerId_;
  int place_;
};

}  // namespace feedloom
