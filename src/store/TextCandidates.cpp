#include "store/TextCandidates.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <ranges>
#include <span>

namespace feedloom {
namespace {

constexpr int kMostCandidates = 20'000;
constexpr std::size_t kReadAtOnce = 200;

std::string DocCondition(const std::optional<RowKey>& within) {
  if (!within) return "";
  const std::string saved =
      fmt::format(" and text_doc_isSaved = {:d}", HoldsScrapPosts(within->kind));
  switch (within->kind) {
    case RowKind::Folder:
      return fmt::format(
          "{} and text_doc_ownerID in (Select channel_id From TB_CHANNEL Where channel_folderID = "
          "{})",
          saved, within->id);
    case RowKind::Channel:
    case RowKind::Cabinet:
      return fmt::format("{} and text_doc_ownerID = {}", saved, within->id);
    case RowKind::CabinetRoot:
      break;
  }
  return saved;
}

// The dates of a query consist of digits, "-" and "~".
std::string OfTime(const TextQuery& query) {
  std::string condition;
  if (!query.since.empty())
    condition += fmt::format(" and text_doc_published >= '{}'", query.since);
  if (!query.until.empty())
    condition +=
        fmt::format(" and text_doc_published <> '' and text_doc_published < '{}'", query.until);
  return condition;
}

// The numbers of those of `candidates` that are saved posts, or that are not.
std::string Numbers(std::span<const Candidate> candidates, bool areSaved) {
  std::vector<int> numbers;
  for (const Candidate& candidate : candidates) {
    if (candidate.isSaved == areSaved) numbers.push_back(candidate.postId);
  }
  return numbers.empty() ? "" : fmt::format("{}", fmt::join(numbers, ","));
}

bool ReadTogether(TextRows& texts, std::span<const Candidate> candidates, const OnHit& onHit) {
  for (const bool areSaved : {false, true}) {
    const std::string numbers = Numbers(candidates, areSaved);
    if (numbers.empty()) continue;
    if (!texts.Read(areSaved, fmt::format("{} in ({})", IdColumn(areSaved), numbers), onHit))
      return false;
  }
  return true;
}

}  // namespace

std::optional<std::vector<Candidate>> FindCandidates(Connection& connection,
                                                     const std::string& expression,
                                                     const TextQuery& query,
                                                     const SearchedRows& rows,
                                                     std::optional<int> before) {
  const auto table = connection.Query(fmt::format(
      "Select text_doc, text_doc_isSaved, text_doc_postID, text_doc_published From TB_TEXT_INDEX "
      "Join TB_TEXT_DOC On text_doc = TB_TEXT_INDEX.rowid Where TB_TEXT_INDEX Match '{}'{}{}{} "
      "Order By TB_TEXT_INDEX.rowid Desc Limit {}",
      expression, before ? fmt::format(" and TB_TEXT_INDEX.rowid < {}", *before) : "",
      DocCondition(rows.within), OfTime(query), kMostCandidates));
  if (!table) return std::nullopt;
  std::vector<Candidate> candidates;
  for (int row = 0; row < table->Rows(); ++row)
    candidates.push_back(
        {table->Int(row, 0), table->Int(row, 1) != 0, table->Int(row, 2), table->Text(row, 3)});
  return candidates;
}

bool ReadCandidates(TextRows& texts, const std::vector<Candidate>& candidates,
                    const std::stop_token& stop, const OnWantedHit& onHit) {
  bool isWanted = true;
  for (std::size_t first = 0; first < candidates.size() && isWanted; first += kReadAtOnce) {
    if (stop.stop_requested()) return false;
    const auto some = std::span(candidates)
                          .subspan(first)
                          .first(std::min(kReadAtOnce, candidates.size() - first));
    const bool isRead = ReadTogether(texts, some, [&](PostRow post, int relevance) {
      isWanted = onHit(std::move(post), relevance) && isWanted;
    });
    if (!isRead) return false;
  }
  return true;
}

}  // namespace feedloom
