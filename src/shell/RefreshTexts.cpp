#include "shell/RefreshTexts.h"

#include "skin/Keys.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"

namespace feedloom {
namespace {

std::string Text(const Skin& skin, const char* key, std::initializer_list<int> numbers) {
  return WithNumbers(skin.GetText(kSectionTexts, key), numbers);
}

std::string WithFailures(const Skin& skin, const std::string& posts, int failed) {
  if (failed == 0) return posts;
  return WithTitle(Text(skin, failed == 1 ? kTextOneFailed : kTextManyFailed, {failed}), posts);
}

// A host that lacks the text gets `posts` alone.
std::string WithMissing(const Skin& skin, std::string posts, int missing) {
  if (missing == 0) return posts;
  const char* const key = missing == 1 ? kTextOneNotStored : kTextManyNotStored;
  const std::string text = Text(skin, key, {missing});
  return text.empty() ? posts : WithTitle(text, posts);
}

}  // namespace

std::string NewPostsText(const Skin& skin, int count) {
  if (count == 0) return Text(skin, kTextNoNewPosts, {});
  return Text(skin, count == 1 ? kTextOneNewPost : kTextManyNewPosts, {count});
}

std::string RefreshSumsText(const Skin& skin, const RefreshSums& sums) {
  if (sums.total == 0) return {};
  const std::string posts = NewPostsText(skin, static_cast<int>(sums.posts.size()));
  const std::string sum = WithFailures(skin, WithMissing(skin, posts, sums.missing), sums.failed);
  if (!sums.wasStopped) return sum;
  return WithTitle(Text(skin, kTextRefreshStopped, {sums.done, sums.total}), sum);
}

}  // namespace feedloom
