// Parses any bytes as an answer of the web directory. The parser returns at most one page of rows,
// and every text equals that of a simple, slow reference parser.
#include <cstdlib>

#include "exchange/FeedDirectory.h"
#include "fuzz/FuzzKit.h"
#include "store/SqlText.h"
#include "text/Text.h"

namespace feedloom {
namespace {

// The reference parser: searches each mark from the start of the previous field.
class PlainAnswer {
 public:
  explicit PlainAnswer(const std::string& text) : text_(text) {}

  std::string Field(const std::string& mark, const std::string& end) {
    const std::size_t at = text_.find(mark, position_);
    if (at == std::string::npos) return "";
    position_ = at + mark.size();
    const std::size_t endAt = text_.find(end, position_);
    if (endAt == std::string::npos) return "";
    return std::string(Trim(text_.substr(position_, endAt - position_)));
  }

  // The field ends at the next record or at the end of the answer.
  std::string LastField(const std::string& mark) {
    const std::size_t at = text_.find(mark, position_);
    const std::size_t begin = at == std::string::npos ? position_ : at;
    const bool hasRecord = text_.find("[HS]", begin) != std::string::npos;
    return Field(mark, hasRecord ? "[HS]" : "[QK]");
  }

  bool HasRecord() const { return text_.find("[HS]", position_) != std::string::npos; }

 private:
  const std::string& text_;
  std::size_t position_ = 0;
};

PostRow ReadRecord(PlainAnswer& answer) {
  PostRow row;
  answer.Field("[HS]", "[IT]");
  row.title = UnescapeEntities(answer.Field("[IT]", "[IU]"));
  row.link = UnescapeEntities(answer.Field("[IU]", "[RT]"));
  answer.Field("[RT]", "[RU]");
  row.feedUrl = UnescapeEntities(answer.Field("[RU]", "[DT]"));
  const std::string stamp = answer.Field("[DT]", "[ID]");
  if (stamp.size() >= 13) {
    row.published = stamp.substr(0, 4) + "-" + stamp.substr(4, 2) + "-" + stamp.substr(6, 2) + " " +
                    stamp.substr(8, 2) + ":" + stamp.substr(10, 2) + ":" + stamp.substr(11, 2);
  }
  row.description = UnescapeEntities(answer.Field("[ID]", "[PO]"));
  row.isPodcast = ParseInt(answer.LastField("[PO]"));
  return row;
}

}  // namespace

void CheckInput(FuzzInput input) {
  const std::string text(input.Rest());
  const auto [isAnswered, total, rows] = ParseDirectoryAnswer(text);
  Require(rows.size() <= kDirectoryPageSize, "an answer has a page of rows at most");

  PlainAnswer answer(text);
  Require(total == ParseInt(answer.LastField("[TO]")), "the total is that of the answer");
  for (const PostRow& row : rows) {
    Require(answer.HasRecord(), "each row has a record");
    const PostRow expected = ReadRecord(answer);
    RequireEqual(row.title, expected.title, "a row has its record's title");
    RequireEqual(row.link, expected.link, "a row has its record's link");
    RequireEqual(row.feedUrl, expected.feedUrl, "a row has its record's feed");
    RequireEqual(row.published, expected.published, "a row has its record's date");
    RequireEqual(row.description, expected.description, "a row has its record's text");
    Require(row.isPodcast == expected.isPodcast, "a row knows whether it is a podcast");
  }
  Require(rows.size() == kDirectoryPageSize || !answer.HasRecord(), "no record is left out");
}

}  // namespace feedloom
