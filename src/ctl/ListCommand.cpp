// feedloomctl list: folders, channels and cabinets.
#include <fmt/core.h>

#include "ctl/Commands.h"
#include "ctl/FaultJson.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"

namespace feedloom {
namespace {

struct Lists {
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  std::vector<CabinetRow> cabinets;
  FeedMemory memory;

  FeedVisit VisitOf(const ChannelRow& row) const { return memory.Last(row.id, row.xmlLink); }
};

std::chrono::sys_seconds Now() {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

Json ChannelJson(const Session& session, const ChannelRow& channel, const Lists& lists) {
  Json json = {{"id", channel.id},
               {"title", session.Utf8(channel.title)},
               {"url", session.Utf8(channel.xmlLink)},
               {"order", channel.order},
               {"unread", channel.unreadCount},
               {"state", channel.state}};
  AddVisit(json, lists.VisitOf(channel), Now());
  return json;
}

std::string ChannelLine(const Session& session, const ChannelRow& channel, const Lists& lists) {
  const FeedVisit visit = lists.VisitOf(channel);
  const std::string moved =
      visit.movedTo.empty() ? "" : fmt::format(" (has moved to {})", OneLine(visit.movedTo));
  return fmt::format("  channel {}: {} ({} unread, {}) {}{}", channel.id,
                     OneLine(session.Utf8(channel.title)), channel.unreadCount,
                     VisitWords(channel.state, visit, Now()),
                     OneLine(session.Utf8(channel.xmlLink)), moved);
}

Json FolderJson(const Session& session, const FolderRow& folder, const Lists& lists) {
  Json channels = Json::array();
  for (const ChannelRow& channel : lists.channels) {
    if (channel.folderId == folder.id) channels.push_back(ChannelJson(session, channel, lists));
  }
  return {{"id", folder.id},
          {"name", session.Utf8(folder.name)},
          {"order", folder.order},
          {"unread", folder.unreadCount},
          {"channels", std::move(channels)}};
}

Json ListsJson(const Session& session, const Lists& lists) {
  Json folders = Json::array();
  for (const FolderRow& folder : lists.folders) {
    folders.push_back(FolderJson(session, folder, lists));
  }
  Json cabinets = Json::array();
  for (const CabinetRow& cabinet : lists.cabinets) {
    cabinets.push_back({{"id", cabinet.id},
                        {"title", session.Utf8(cabinet.title)},
                        {"order", cabinet.order},
                        {"unread", cabinet.unreadCount}});
  }
  return {{"folders", std::move(folders)}, {"cabinets", std::move(cabinets)}};
}

void PrintLists(const Session& session, const Lists& lists) {
  const auto line = [&](std::string_view text) { return OneLine(session.Utf8(text)); };
  for (const FolderRow& folder : lists.folders) {
    PrintLine(
        fmt::format("folder {}: {} ({} unread)", folder.id, line(folder.name), folder.unreadCount));
    for (const ChannelRow& channel : lists.channels) {
      if (channel.folderId == folder.id) PrintLine(ChannelLine(session, channel, lists));
    }
  }
  for (const CabinetRow& cabinet : lists.cabinets) {
    PrintLine(fmt::format("cabinet {}: {} ({} unread)", cabinet.id, line(cabinet.title),
                          cabinet.unreadCount));
  }
}

}  // namespace

int RunList(Session& session) {
  Lists lists{{}, {}, {}, FeedMemory(session.FeedMemoryFile())};
  lists.memory.Load();
  if (!LoadFolderList(session.GetStore(), lists.folders) ||
      !LoadChannelList(session.GetStore(), lists.channels) ||
      !LoadCabinetList(session.GetStore(), lists.cabinets)) {
    return kFailure;
  }
  if (session.WantsJson()) {
    PrintJson(ListsJson(session, lists));
  } else {
    PrintLists(session, lists);
  }
  return kSuccess;
}

}  // namespace feedloom
