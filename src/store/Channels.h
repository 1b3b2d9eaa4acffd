// Channels: the subscribed feeds. Any thread may call these; each call reports its own failures
// (Store.h), and opens and closes the database unless it is handed a connection.
#pragma once

#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

class Connection;

// Appends every channel of all folders with its unread count, by channel order; false after a
// failure.
bool LoadChannelList(Store& store, std::vector<ChannelRow>& out);

// True when the folder holds a channel with exactly this feed address; `id` and `order` are set
// only then. One address may be subscribed in two folders.
bool FindChannelByXmlLink(Store& store, std::string_view xmlLink, int folderId, int& id,
                          int& order);
bool ChannelTitleExists(Store& store, std::string_view title, int folderId);

// The id of the folder that holds the channel: 0 when there is no such channel, -1 after a failure.
int GetChannelFolderId(Store& store, int channelId);

// Adds `record`'s channel through `connection`, unless its folder has its feed address already.
// Sets the record's id either way and, for a new channel, its order and newlyInserted. A negative
// order becomes the folder's highest: the channel shares it with the folder's last one. After a
// failure returns false and leaves the record unchanged.
bool AddChannelRecord(Connection& connection, ChannelRecord& record);

// AddChannelRecord with a connection of its own, as the last channel of the folder.
bool AppendChannelRecord(Store& store, ChannelRecord& record);

// The channel as its row reads now that it was added: the texts as they were stored, nothing
// unread.
ChannelRow StoredRow(const ChannelRecord& record);

// The new channel's id, -1 after a failure. No look at what is there already.
int InsertChannel(Store& store, std::string_view title, std::string_view xmlLink,
                  std::string_view htmlLink, int folderId, int order);

// What a refresh asks of a channel before it begins.
struct ChannelContents {
  int id = 0;
  int state = 0;  // of its last refresh
  bool holdsPosts = false;
};

// Appends all channels; false after a failure.
bool LoadChannelContents(Store& store, std::vector<ChannelContents>& out);

// False after a failure.
bool RenameChannel(Store& store, int channelId, std::string_view title);
bool MoveChannel(Store& store, int channelId, int folderId);
bool SetChannelState(Store& store, int channelId, int state);

// Deletes the channel and its posts. A statement that fails is reported and the next one still
// runs. False when one failed.
bool DeleteChannel(Store& store, int channelId);

}  // namespace feedloom
