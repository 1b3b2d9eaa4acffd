#include "ui/list/PackedPost.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace feedloom {
namespace {

// The texts that the list shows come first, because Text() adds up the lengths before a text.
enum TextNumber { kTitle, kPublished, kOwnerTitle };
constexpr std::string PostRow::*kTexts[] = {
    &PostRow::title,   &PostRow::published, &PostRow::ownerTitle, &PostRow::link,
    &PostRow::created, &PostRow::updated,   &PostRow::feedUrl};

}  // namespace

PackedPost::PackedPost(PostRow&& post, int storeIndex)
    : description_(std::move(post.description)),
      readStatus_(post.readStatus),
      id_(post.id),
      isPodcast_(post.isPodcast),
      ownerId_(post.ownerId),
      storeIndex_(storeIndex),
      isSaved_(post.isSaved) {
  static_assert(std::size(kTexts) == kTextCount);
  // A length always fits into 32 bits: SQLite limits a text to one gigabyte by default.
  std::ranges::transform(kTexts, lengths_.begin(), [&](auto text) {
    return static_cast<std::uint32_t>((post.*text).size());
  });
  texts_ = std::make_unique_for_overwrite<char[]>(
      std::accumulate(lengths_.begin(), lengths_.end(), std::size_t{0}));
  char* end = texts_.get();
  for (const auto text : kTexts) end = std::ranges::copy(post.*text, end).out;
}

PostRow PackedPost::Unpack() const {
  PostRow post = UnpackShort();
  post.description = description_;
  return post;
}

PostRow PackedPost::Release() {
  PostRow post = UnpackShort();
  post.description = std::move(description_);
  return post;
}

PostRow PackedPost::UnpackShort() const {
  PostRow post;
  for (std::size_t number = 0; number < kTextCount; ++number) post.*kTexts[number] = Text(number);
  post.readStatus = readStatus_;
  post.id = id_;
  post.isPodcast = isPodcast_;
  post.ownerId = ownerId_;
  post.isSaved = isSaved_;
  return post;
}

std::string_view PackedPost::Title() const { return Text(kTitle); }

std::string_view PackedPost::Published() const { return Text(kPublished); }

std::string_view PackedPost::OwnerTitle() const { return Text(kOwnerTitle); }

std::string_view PackedPost::Text(std::size_t number) const {
  const auto length = lengths_.begin() + static_cast<std::ptrdiff_t>(number);
  return {texts_.get() + std::accumulate(lengths_.begin(), length, std::size_t{0}), *length};
}

}  // namespace feedloom
