// feedloomctl add: subscribes to a feed.
#include <fmt/core.h>

#include <span>

#include "ctl/Commands.h"
#include "ctl/FileOrWebAddress.h"
#include "ctl/LoginFromUser.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "feed/FeedParser.h"
#include "fetch/FaultWords.h"
#include "net/Url.h"
#include "store/ChannelAdder.h"
#include "store/Folders.h"

namespace feedloom {
namespace {

// Returns the id of the folder named `name` (UTF-8), which is added when there is none. For an
// empty `name` returns the id of the first folder. After a failure prints an error and returns 0 or
// less.
int FolderFor(Session& session, const std::string& name) {
  Store& store = session.GetStore();
  if (!name.empty()) {
    int id = 0;
    int order = 0;
    const std::string text = session.Text(name);
    if (FindFolderByName(store, text, id, order)) return id;
    return AppendFolder(store, text, order);
  }
  std::vector<FolderRow> folders;
  if (!LoadFolderList(store, folders)) return -1;
  if (!folders.empty()) return folders.front().id;
  PrintError("there is no folder yet; name one with --folder");
  return 0;
}

std::string Reason(const FetchOutcome& outcome, bool isLoginGiven) {
  if (outcome.result != kLoginWanted) return FaultWords(outcome.fault);
  return fmt::format("{} ({}){}", outcome.error, outcome.loginServer,
                     isLoginGiven ? "" : "; give them with --user NAME");
}

// Tells which other feeds the page at `address` announces than the first one, which is taken.
void TellOthers(const std::string& address, std::span<const std::string> announced) {
  for (const std::string& other : announced.subspan(1))
    PrintError(fmt::format("{} also has the feed {}", address, other));
}

// Returns the channel as the feed at `address` describes it, or the first feed that a web page
// there announces. When there is no feed, or its login cannot be kept, prints an error and returns
// nothing.
std::optional<ChannelRecord> ReadChannel(Session& session, const std::string& address,
                                         std::optional<GivenLogin>& login,
                                         bool isAnnounced = false) {
  FeedParser parser(session.Reading());
  const auto [outcome, announced] = FetchWithLogin(session, address, login, parser);
  const std::string shown = UrlWithoutLogin(address);
  if (!announced.empty() && !isAnnounced) {
    auto record = ReadChannel(session, announced.front(), login, true);
    if (record) TellOthers(shown, announced);
    return record;
  }
  if (outcome.result != kChannelRefreshed || outcome.loginIsLost) {
    PrintError(fmt::format("{}: {}", shown,
                           outcome.loginIsLost ? "the name and the password could not be kept"
                                               : Reason(outcome, login.has_value())));
    return std::nullopt;
  }
  ChannelRecord record;
  record.title = parser.GetChannelTitle();
  record.xmlLink = session.Text(address);
  record.htmlLink = parser.GetChannelLink();
  if (record.title.empty()) record.title = session.Text(shown);
  return record;
}

void PrintAdded(const Session& session, const ChannelRecord& record) {
  const std::string title = session.Utf8(record.title);
  if (session.WantsJson()) {
    PrintJson({{"id", record.id},
               {"folderId", record.folderId},
               {"title", title},
               {"address", UrlWithoutLogin(session.Utf8(record.xmlLink))}});
  } else {
    PrintLine(fmt::format("Added channel {}: {}", record.id, OneLine(title)));
  }
}

// The channel was there already: an error, unless its login is what has changed.
int PrintDuplicate(const Session& session, const std::string& address, const ChannelRecord& record,
                   const std::optional<GivenLogin>& login) {
  if (!login) {
    PrintError(fmt::format("{} is channel {} of that folder already", UrlWithoutLogin(address),
                           record.id));
    return kFailure;
  }
  if (session.WantsJson()) {
    PrintJson({{"id", record.id}, {"folderId", record.folderId}, {"loginFor", login->origin}});
  } else {
    PrintLine(fmt::format("Channel {} was there; kept its name and password for {}", record.id,
                          login->origin));
  }
  return kSuccess;
}

}  // namespace

int RunAdd(Session& session, const AddOptions& options) {
  const std::string address = FileOrWebAddress(session.GetSkin(), options.address);
  std::optional<GivenLogin> login;
  if (!options.user.empty() && !(login = AskLogin(options.user, address))) return kFailure;
  auto record = ReadChannel(session, address, login);
  if (!record) return kFailure;
  if (!options.title.empty()) record->title = session.Text(options.title);
  record->folderId = FolderFor(session, options.folder);
  if (record->folderId <= 0 || !AppendChannelRecord(session.GetStore(), *record))
    return session.Finish(kFailure);
  if (!record->newlyInserted) return PrintDuplicate(session, options.address, *record, login);
  PrintAdded(session, *record);
  return session.Finish(kSuccess);
}

}  // namespace feedloom
