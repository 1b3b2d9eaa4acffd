// feedloomctl check: what the reader sees in a feed.
#include "ctl/Commands.h"
#include "ctl/FaultJson.h"
#include "ctl/FileOrWebAddress.h"
#include "ctl/LoginFromUser.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "feed/FeedDate.h"
#include "feed/FeedParser.h"
#include "fetch/FaultOf.h"
#include "profile/Files.h"

namespace feedloom {
namespace {

Json ItemJson(const Session& session, const FeedItem& item) {
  std::string stored = item.date;
  NormalizeFeedDate(stored);
  return {{"title", session.Utf8(item.title)},
          {"link", session.Utf8(item.link)},
          {"date", session.Utf8(item.date)},
          {"stored", stored},
          {"podcast", item.isPodcast},
          {"enclosureType", session.Utf8(item.enclosureType)},
          {"description", session.Utf8(item.description)}};
}

Json FeedJson(const Session& session, const FeedParser& parser, int result) {
  Json items = Json::array();
  for (const FeedItem& item : parser.Items()) items.push_back(ItemJson(session, item));
  const bool known = parser.GetFormat() != FeedFormat::Unknown;
  return {{"result", result},
          {"format", known ? Json(static_cast<int>(parser.GetFormat())) : Json(nullptr)},
          {"rssVariant", parser.Variants().rss},
          {"atomVariant", parser.Variants().atom},
          {"title", session.Utf8(parser.GetChannelTitle())},
          {"link", session.Utf8(parser.GetChannelLink())},
          {"items", std::move(items)}};
}

int PrintFeed(const Session& session, const FeedParser& parser, int result) {
  const DocumentFault& fault = parser.Fault();
  Json feed = FeedJson(session, parser, result);
  if (!parser.Error().empty()) feed["error"] = parser.Error();
  if (fault.kind != DocumentFaultKind::None) feed["fault"] = FaultJson(FaultOf(fault));
  PrintJson(feed);
  return result < 0 ? kFailure : kSuccess;
}

int CheckAddress(Session& session, const std::string& address, const std::string& user) {
  std::optional<GivenLogin> login;
  if (!user.empty() && !(login = AskLogin(user, address))) return kFailure;
  FeedParser parser(session.Reading());
  const FetchOutcome outcome = FetchWithLogin(session, address, login, parser).outcome;
  const bool hasCome = outcome.result != kDownloadFailed && outcome.result != kLoginWanted;
  if (hasCome) return PrintFeed(session, parser, outcome.parseCode);
  PrintJson({{"result", nullptr}, {"error", outcome.error}, {"fault", FaultJson(outcome.fault)}});
  return kFailure;
}

}  // namespace

int RunCheck(Session& session, const CheckOptions& options) {
  if (!IsRegularFile(options.source)) {
    return CheckAddress(session, FileOrWebAddress(session.GetSkin(), options.source), options.user);
  }
  FeedParser parser(session.Reading());
  const int result = parser.Parse(options.source);
  return PrintFeed(session, parser, result);
}

}  // namespace feedloom
