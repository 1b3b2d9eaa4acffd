// feedloomctl directory: one page of the web directory's feeds for a word.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "exchange/FeedDirectory.h"
#include "fetch/TimeLimit.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

// Returns the error for a request to `service` without an answer; `isTooLate`: the time limit has
// passed.
std::string NoAnswerText(const Session& session, const std::string& service, bool isTooLate) {
  const std::string place = OneLine(session.Utf8(service));
  return isTooLate ? fmt::format("{} did not answer within {} seconds", place,
                                 kDirectoryTimeLimit.count())
                   : fmt::format("{} gave no answer", place);
}

// Returns the directory's answer. Without one prints an error and returns nothing.
std::optional<DirectoryAnswer> Search(Session& session, const DirectoryOptions& options) {
  const std::string service = session.GetSkin().GetText(kSectionTexts, kTextDirectoryService);
  if (service.empty()) {
    PrintError("no web directory has been set up");
    return std::nullopt;
  }
  const SharedServices services = session.Services();
  if (!services) return std::nullopt;
  HttpClient client(services->registry);
  const TimeLimit limit(services->clock, kDirectoryTimeLimit);
  DirectoryAnswer found =
      SearchDirectory(client, service, session.Text(options.word), options.page, limit.Token());
  if (found.isAnswered) return found;
  PrintError(NoAnswerText(session, service, limit.RanOut()));
  return std::nullopt;
}

Json RowJson(const Session& session, const PostRow& row) {
  return {{"title", session.Utf8(row.title)},
          {"link", session.Utf8(row.link)},
          {"feedUrl", session.Utf8(row.feedUrl)},
          {"published", session.Utf8(row.published)},
          {"description", session.Utf8(row.description)},
          {"podcast", row.isPodcast != 0}};
}

void PrintFoundJson(const Session& session, int page, const DirectoryAnswer& found) {
  Json rows = Json::array();
  for (const PostRow& row : found.rows) rows.push_back(RowJson(session, row));
  PrintJson({{"total", found.total}, {"page", page}, {"rows", std::move(rows)}});
}

void PrintFound(const Session& session, int page, const DirectoryAnswer& found) {
  const auto line = [&](std::string_view text) { return OneLine(session.Utf8(text)); };
  PrintLine(fmt::format("{} in all, {} on page {}", found.total, found.rows.size(), page));
  for (const PostRow& row : found.rows) {
    PrintLine(fmt::format("{:19} {} {}", line(row.published), line(row.title), line(row.feedUrl)));
  }
}

}  // namespace

int RunDirectory(Session& session, const DirectoryOptions& options) {
  const auto found = Search(session, options);
  if (!found) return kFailure;
  if (session.WantsJson()) {
    PrintFoundJson(session, options.page, *found);
  } else {
    PrintFound(session, options.page, *found);
  }
  return kSuccess;
}

}  // namespace feedloom
