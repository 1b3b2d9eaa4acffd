// feedloomctl add: subscribes to a feed.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/FetchOnce.h"
#include "ctl/FileOrWebAddress.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "feed/FeedParser.h"
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

const char* Reason(const FetchOutcome& outcome) {
  return outcome.error.empty() ? "this is not a feed" : outcome.error.c_str();
}

// Returns the channel as the feed at `address` describes it. When there is no feed, prints an error
// and returns nothing.
std::optional<ChannelRecord> ReadChannel(Session& session, const std::string& address) {
  FeedParser parser(session.Reading());
  const FetchOutcome outcome = FetchOnce(session, address, parser);
  if (outcome.result != kChannelRefreshed) {
    PrintError(fmt::format("{}: {}", address, Reason(outcome)));
    return std::nullopt;
  }
  ChannelRecord record;
  record.title = parser.GetChannelTitle();
  record.xmlLink = session.Text(address);
  record.htmlLink = parser.GetChannelLink();
  if (record.title.empty()) record.title = record.xmlLink;
  return record;
}

void PrintAdded(const Session& session, const ChannelRecord& record) {
  const std::string title = session.Utf8(record.title);
  if (session.WantsJson()) {
    PrintJson({{"id", record.id}, {"folderId", record.folderId}, {"title", title}});
  } else {
    PrintLine(fmt::format("Added channel {}: {}", record.id, OneLine(title)));
  }
}

}  // namespace

int RunAdd(Session& session, const AddOptions& options) {
  auto record = ReadChannel(session, FileOrWebAddress(session.GetSkin(), options.address));
  if (!record) return kFailure;
  if (!options.title.empty()) record->title = session.Text(options.title);
  record->folderId = FolderFor(session, options.folder);
  if (record->folderId <= 0 || !AppendChannelRecord(session.GetStore(), *record))
    return session.Finish(kFailure);
  if (!record->newlyInserted) {
    PrintError(fmt::format("{} is channel {} of that folder already", options.address, record->id));
    return kFailure;
  }
  PrintAdded(session, *record);
  return session.Finish(kSuccess);
}

}  // namespace feedloom
