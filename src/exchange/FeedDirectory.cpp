#include "exchange/FeedDirectory.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "platform/Text.h"
#include "store/SqlText.h"

namespace feedloom {
namespace {

// The marks before the fields of an answer: its total, then for each record those from kRecord to
// kPodcast, and the end.
enum Mark {
  kTotal,
  kRecord,
  kTitle,
  kLink,
  kFeedTitle,
  kFeedUrl,
  kDate,
  kDescription,
  kPodcast,
  kEnd,
  kMarkCount,
};
constexpr std::array<std::string_view, kMarkCount> kMarks = {
    "[TO]", "[HS]", "[IT]", "[IU]", "[RT]", "[RU]", "[DT]", "[ID]", "[PO]", "[QK]"};

// Reads an answer from its beginning to its end. Each mark is looked for through the text once at
// most, so that one with many missing costs no more than one with all.
class Answer {
 public:
  explicit Answer(std::string_view text) : text_(text) {
    std::ranges::transform(kMarks, next_.begin(), [&](auto mark) { return text.find(mark); });
  }

  // What lies between the next `mark` and the `end` behind it, without the blanks around it; empty
  // when one of them is missing. Goes on behind `mark`.
  std::string_view Field(Mark mark, Mark end) {
    const std::size_t at = Next(mark);
    if (at == text_.npos) return {};
    position_ = at + kMarks[mark].size();
    const std::size_t endAt = Next(end);
    return endAt == text_.npos ? std::string_view()
                               : Trim(text_.substr(position_, endAt - position_));
  }

  // The same for a field that the next record ends, or the answer when there is none.
  std::string_view LastField(Mark mark) {
    if (const std::size_t at = Next(mark); at != text_.npos) position_ = at;
    return Field(mark, HasRecord() ? kRecord : kEnd);
  }

  bool HasRecord() { return Next(kRecord) != text_.npos; }

 private:
  std::size_t Next(Mark mark) {
    std::size_t& at = next_[mark];
    if (at < position_) at = text_.find(kMarks[mark], position_);
    return at;
  }

  const std::string_view text_;
  std::size_t position_ = 0;
  std::array<std::size_t, kMarkCount> next_;  // where each mark stands from a position before on
};

// "20080501093045" as "2008-05-01 09:30:04": the seconds begin one digit too early, as all who read
// these answers have always had them. Empty for a stamp that is too short.
std::string DateText(std::string_view stamp) {
  if (stamp.size() < 13) return "";
  return fmt::format("{}-{}-{} {}:{}:{}", stamp.substr(0, 4), stamp.substr(4, 2),
                     stamp.substr(6, 2), stamp.substr(8, 2), stamp.substr(10, 2),
                     stamp.substr(11, 2));
}

PostRow ReadRecord(Answer& answer) {
  PostRow row;
  answer.Field(kRecord, kTitle);
  row.title = UnescapeEntities(answer.Field(kTitle, kLink));
  row.link = UnescapeEntities(answer.Field(kLink, kFeedTitle));
  answer.Field(kFeedTitle, kFeedUrl);
  row.feedUrl = UnescapeEntities(answer.Field(kFeedUrl, kDate));
  row.published = DateText(answer.Field(kDate, kDescription));
  row.description = UnescapeEntities(answer.Field(kDescription, kPodcast));
  row.isPodcast = ParseInt(answer.LastField(kPodcast));
  return row;
}

}  // namespace

std::string DirectoryQuery(const std::string& service, const std::string& word, int page) {
  return fmt::format("{}?ver=0611&maxnum={}&pg={}&str={}", service, kDirectoryPageSize, page, word);
}

int CutDirectoryAnswer(std::string_view text, std::vector<PostRow>& rows) {
  Answer answer(text);
  const int total = ParseInt(answer.LastField(kTotal));
  for (int count = 0; count < kDirectoryPageSize && answer.HasRecord(); ++count) {
    rows.push_back(ReadRecord(answer));
  }
  return total;
}

int SearchDirectory(HttpClient& client, const std::string& service, std::vector<PostRow>& rows,
                    const std::string& word, int page, std::stop_token stop, bool& isAnswered) {
  const std::string answer = client.Get(DirectoryQuery(service, word, page), std::move(stop));
  isAnswered = !answer.empty();
  return CutDirectoryAnswer(answer, rows);
}

}  // namespace feedloom
