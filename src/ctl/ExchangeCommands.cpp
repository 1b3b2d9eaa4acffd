// feedloomctl export and import: subscriptions as OPML.
#include <fmt/core.h>
#include <fmt/ranges.h>

#include <array>
#include <cstdio>

#include "ctl/Commands.h"
#include "ctl/FileOrWebAddress.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "exchange/OpmlExport.h"
#include "exchange/OpmlImport.h"
#include "files/Path.h"
#include "files/TempFile.h"
#include "profile/Files.h"

namespace feedloom {
namespace {

constexpr char kStandardStream[] = "-";

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

constexpr std::size_t kMostInput = (64u << 20) + 1;  // bytes, one more than a list may have

// Returns what stands on standard input, of a longer text the first kMostInput bytes.
std::string ReadInput() {
  std::string input;
  std::array<char, 1 << 16> part;
  while (const std::size_t size = std::fread(part.data(), 1, part.size(), stdin)) {
    input.append(part.data(), size);
    if (input.size() >= kMostInput) break;
  }
  return input;
}

// Reads the list on standard input. It is called "OPML".
ReadList ReadInputList(const FetchServices& services) {
  const TempFile file(JoinPath(services.workDir, "OPML"));
  if (const Failure failure = WriteFileWhole(file.Path(), ReadInput())) return {{}, *failure};
  return ReadSubscriptions(services, {.place = file.Path()}, {});
}

constexpr std::string_view ReasonWords(LeftOutReason reason) {
  switch (reason) {
    case LeftOutReason::NotOfTheWeb:
      return "its address is not of the web";
    case LeftOutReason::TooDeep:
      return "in a folder within a folder";
    case LeftOutReason::NoAddress:
      break;
  }
  return "no address of a feed";
}

void PrintJsonSums(const Session& session, const ImportSums& sums, int folders) {
  Json named = Json::array();
  for (const LeftOutEntry& entry : sums.named) {
    named.push_back({{"name", session.Utf8(entry.name)}, {"reason", ReasonWords(entry.reason)}});
  }
  PrintJson({{"folders", folders},
             {"added", sums.added},
             {"present", sums.present},
             {"leftOut", sums.leftOut},
             {"named", std::move(named)}});
}

void PrintSums(const Session& session, const ImportSums& sums, int folders) {
  if (session.WantsJson()) return PrintJsonSums(session, sums, folders);
  PrintLine(fmt::format("Added {} and {}; {} there already, {} left out{}",
                        Counted(sums.added, "channel"), Counted(folders, "folder"), sums.present,
                        sums.leftOut, sums.named.empty() ? "" : ":"));
  for (const LeftOutEntry& entry : sums.named) {
    const std::string name = OneLine(session.Utf8(entry.name));
    PrintLine(
        fmt::format("  {}: {}", name.empty() ? "(no name)" : name, ReasonWords(entry.reason)));
  }
  const int more = sums.leftOut - static_cast<int>(sums.named.size());
  if (more > 0 && !sums.named.empty()) PrintLine(fmt::format("  and {} more", more));
}

// Writes the list to the file, or to standard output. Returns false after a failure.
bool WriteList(const std::string& path, const std::string& opml) {
  if (path == kStandardStream) return std::fwrite(opml.data(), 1, opml.size(), stdout) > 0;
  const Failure failure = SaveFile(path, opml);
  if (failure) PrintError(*failure);
  return !failure;
}

// Prints that the list cannot be read again, and why. `path` is where it was written to.
void PrintCheck(const Session& session, const std::string& path, const OpmlCheck& check) {
  std::vector<std::string> names;
  for (const std::string& name : check.first) names.push_back(OneLine(session.Utf8(name)));
  const int more = check.count - static_cast<int>(names.size());
  PrintError(fmt::format(
      "{} was written, but cannot be read again; names that XML does not allow: "
      "{}{}{}{}",
      path == kStandardStream ? "the list" : path, check.count, names.empty() ? "" : ": ",
      fmt::join(names, ", "), more > 0 ? fmt::format(" and {} more", more) : ""));
}

void PrintExported(const Session& session, const std::string& path, const OpmlExport& result) {
  if (path == kStandardStream) return;
  if (session.WantsJson()) {
    PrintJson({{"file", path}, {"folders", result.folders}, {"channels", result.channels}});
  } else {
    PrintLine(fmt::format("Wrote {} of {}", Counted(result.channels, "channel"),
                          Counted(result.folders, "folder")));
  }
}

}  // namespace

int RunExport(Session& session, const std::string& path) {
  auto list = StoredSubscriptions(session.GetStore());
  if (!list) return kFailure;
  const OpmlExport result = ExportSubscriptions(session.GetStore(), std::move(*list),
                                                session.GetSkin().Config().ReadsLeniently());
  if (!WriteList(path, result.opml)) return kFailure;
  if (!result.check.readsBack) {
    PrintCheck(session, path, result.check);
    return kFailure;
  }
  PrintExported(session, path, result);
  return kSuccess;
}

int RunImport(Session& session, const ImportOptions& options) {
  const SharedServices services = session.Services();
  if (!services) return kFailure;
  const ReadList list = options.list == kStandardStream
                            ? ReadInputList(*services)
                            : ReadSubscriptions(*services, SourceOf(session, options.list), {});
  if (!list.plan) {
    PrintError(fmt::format("{}: {}", options.list, list.error));
    return kFailure;
  }
  const bool merges = services->isLenient && !options.doubles;
  int folders = 0;
  const ImportListener news{.onFolder = [&](const FolderRow&) { ++folders; },
                            .onChannel = [](const ChannelRow&) {}};
  const ImportSums sums = AddSubscriptions(session.GetStore(), *list.plan,
                                           merges ? NameClash::Merge : NameClash::Rename, news, {});
  PrintSums(session, sums, folders);
  return session.Finish(sums.isComplete ? kSuccess : kFailure);
}

}  // namespace feedloom
