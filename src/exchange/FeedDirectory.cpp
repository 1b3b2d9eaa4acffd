#include "exchange/FeedDirectory.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "store/SqlText.h"
#include "text/Text.h"

namespace feedloom {
namespace {

// The marks that begin the fields of an answer: the total, then kRecord to kPodcast for each
// record, then the end.
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

// Reads the fields of an answer in their order. The search for a mark never goes over the same text
// twice, so that the time is linear in the answer's length even when marks are missing.
class Answer {
 public:
  explicit Answer(std::string_view text) : text_(text) {
    std::ranges::transform(kMarks, next_.begin(), [&](auto mark) { return text.find(mark); });
  }

  // Returns the text between the next `mark` and the next `end` behind it, trimmed, or an empty
  // text when one of them is missing. The next search begins behind `mark`.
  std::string_view Field(Mark mark, Mark end) {
    const std::size_t at = Next(mark);
    if (at == text_.npos) return {};
    position_ = at + kMarks[mark].size();
    const std::size_t endAt = Next(end);
    return endAt == text_.npos ? std::string_view()
                               : Trim(text_.substr(position_, endAt - position_));
  }

  // Returns, as Field does, the field that ends at the next record or else at the answer's end.
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
  std::array<std::size_t, kMarkCount> next_;  // where each mark was found last
};

// Returns "2008-05-01 09:30:04" for the stamp "20080501093045": the two digits of the seconds are
// read one place too early. Empty for a stamp that is too short.
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

DirectoryAnswer ParseDirectoryAnswer(std::string_view text) {
  Answer answer(text);
  DirectoryAnswer parsed{.isAnswered = true, .total = ParseInt(answer.LastField(kTotal))};
  for (int count = 0; count < kDirectoryPageSize && answer.HasRecord(); ++count) {
    parsed.rows.push_back(ReadRecord(answer));
  }
  return parsed;
}

DirectoryAnswer SearchDirectory(HttpClient& client, const std::string& service,
                                const std::string& word, int page, std::stop_token stop) {
  const std::string answer = client.Get(DirectoryQuery(service, word, page), std::move(stop));
  return answer.empty() ? DirectoryAnswer() : ParseDirectoryAnswer(answer);
}

}  // namespace feedloom
