// feedloomctl export and import: subscriptions as OPML.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/FileOrWebAddress.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImport.h"
#include "profile/Files.h"

namespace feedloom {
namespace {

// Returns whether `typed` names a file. A text that looks like a file's name counts as one even
// when there is no such file, so that a mistyped name is not asked for as a host.
bool IsFileName(const std::string& typed) {
  if (IsRegularFile(typed)) return true;
  const bool looksLikeOne = typed.empty() || typed.front() == '/' || typed.front() == '.' ||
                            typed.ends_with(".opml") || typed.ends_with(".xml");
  return looksLikeOne && typed.find("://") == std::string::npos;
}

ListSource SourceOf(const Session& session, const std::string& typed) {
  if (IsFileName(typed)) return {.place = typed};
  return {.place = FileOrWebAddress(session.GetSkin(), typed), .isAddress = true};
}

void PrintSums(const Session& session, const ImportSums& sums, int folders) {
  if (session.WantsJson()) {
    PrintJson({{"folders", folders},
               {"added", sums.added},
               {"present", sums.present},
               {"leftOut", sums.leftOut}});
  } else {
    PrintLine(fmt::format("Added {} channels and {} folders; {} were there already, {} left out",
                          sums.added, folders, sums.present, sums.leftOut));
  }
}

}  // namespace

int RunExport(Session& session, const std::string& path) {
  const auto list = StoredSubscriptions(session.GetStore());
  if (!list) return kFailure;
  if (const Failure failure = WriteOpml(session.GetStore(), path, *list)) {
    PrintError(*failure);
    return kFailure;
  }
  const int channels = CountChannels(*list);
  if (session.WantsJson()) {
    PrintJson({{"file", path}, {"folders", list->size()}, {"channels", channels}});
  } else {
    PrintLine(fmt::format("Wrote {} channels of {} folders", channels, list->size()));
  }
  return kSuccess;
}

int RunImport(Session& session, const std::string& source) {
  const SharedServices services = session.Services();
  if (!services) return kFailure;
  const ReadList list = ReadSubscriptions(*services, SourceOf(session, source), {});
  if (!list.plan) {
    PrintError(fmt::format("{}: {}", source, list.error));
    return kFailure;
  }
  int folders = 0;
  const ImportListener news{.onFolder = [&](const FolderRow&) { ++folders; },
                            .onChannel = [](const ChannelRow&) {}};
  const ImportSums sums =
      AddSubscriptions(session.GetStore(), *list.plan, NameClash::Rename, news, {});
  PrintSums(session, sums, folders);
  return session.Finish(sums.isComplete ? kSuccess : kFailure);
}

}  // namespace feedloom
