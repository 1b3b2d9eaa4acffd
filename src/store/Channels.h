// Operations on channels, the subscribed feeds. Texts are in the module's code page. Any thread may
// call these functions; each call reports its own failures (Store.h), and opens and closes the
// database unless it is given a connection.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

class Connection;

// Appends the channels of all folders to `out`, sorted by their order, each with its number of
// unread posts. Returns false after a failure.
bool LoadChannelList(Store& store, std::vector<ChannelRow>& out);

// True when the folder holds a channel with exactly this feed address; sets `id` and `order` only
// then, to the last one's when there are several. False also after a failure.
bool FindChannelByXmlLink(Store& store, std::string_view xmlLink, int folderId, int& id,
                          int& order);
// True when the folder holds a channel with exactly this title. False also after a failure.
bool ChannelTitleExists(Store& store, std::string_view title, int folderId);

// Returns the id of the folder that holds the channel: 0 when there is no such channel, -1 after a
// failure.
int GetChannelFolderId(Store& store, int channelId);

// Returns the address of the channel's site; empty when it has none, and after a failure.
std::string HomePageOf(Store& store, int channelId);

// What a refresh needs to know of a channel before it begins.
struct ChannelContents {
  int id = 0;
  int state = 0;  // as in ChannelRow
  bool holdsPosts = false;
};

// Appends one entry for each channel to `out`. Returns false after a failure.
bool LoadChannelContents(Store& store, std::vector<ChannelContents>& out);

// Appends the id, the feed's address and the home page of each channel to `out`. Returns false
// after a failure.
bool LoadChannelAddresses(Store& store, std::vector<Channel>& out);

// Return false after a failure.
bool RenameChannel(Store& store, int channelId, std::string_view title);
bool MoveChannel(Store& store, int channelId, int folderId);
// Gives the channel another feed address; its posts stay.
bool SetChannelAddress(Store& store, int channelId, std::string_view address);
bool SetChannelState(Store& store, int channelId, int state);
// Sets the state through `connection`; runs no statement that writes when the channel has it.
bool SetChannelState(Connection& connection, int channelId, int state);

// Deletes the channel and its posts. When one statement fails, the next one still runs. Returns
// false when one failed.
bool DeleteChannel(Store& store, int channelId);

}  // namespace feedloom
