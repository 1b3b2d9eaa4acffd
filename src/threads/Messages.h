// The numbers of all messages that the module's parts exchange with each other and with the host.
#pragma once

namespace feedloom {

enum Message : unsigned {
  // From refresh threads to the frame.
  kMessageChannelResult = 0x500,  // wParam a ChannelResult, lParam the channel id
  kMessageChannelWorker = 0x506,  // wParam the channel id, lParam 0: a worker began or was stopped
  kMessageChannelInserted = 0x508,  // wParam the channel id, lParam 1

  // The feed check's: kept free for it, but not sent, because its dialog gets the answer as a
  // value.
  kMessageFeedChecked = 0x502,
  kMessageFeedDetails = 0x503,

  // From an import that has ended to the frame: wParam 0, or -1 when the list could not be read.
  kMessageListImported = 0x504,

  // From the module to the host's window.
  kMessageShowText = 0x3063,  // lParam a const std::string*, in the module's code page
  // lParam a const std::string*, in the module's code page: what the last step is called, which can
  // be undone; empty when that is no longer offered.
  kMessageUndoOffered = 0x3064,
  kMessageTextIsFailure = 0x3065,  // the text that was shown last tells of a failure
  kMessageRefreshBegan = 0x5601,
  kMessageRefreshEnded = 0x5602,
  kMessageRefreshProgress = 0x5603,  // wParam and lParam: so many channels are done, of so many
  kMessageUnreadOnlyShown = 0x5604,  // wParam 1 or 0: only unread posts are shown now, or all
  kMessageUnreadCount = 0x5605,      // wParam the number of unread posts of all channels
  // What a refresh has brought: wParam the number of posts, lParam a const std::string*, in the
  // module's code page: of each channel, 20 at most, a line with its title, the number of its new
  // posts and the title of the newest one, with tabs between them.
  kMessageNewPosts = 0x5606,

  // From the host to the frame. The parameters are ignored; the answer is 0.
  kMessageShowTextAgain = 0x3079,
  kMessageOpenPanel = 0x307B,
  kMessageRefreshAll = 0x307C,
  kMessageViewChanged = 0x307D,
  kMessageStopRefresh = 0x307E,
  kMessageUndo = 0x307F,
  kMessageRefreshDue = 0x3081,
  kMessageShowKeys = 0x3082,
  kMessageShowNewPosts = 0x3084,  // those that the last kMessageNewPosts told of
  kMessageOpenFilters = 0x3085,

  // From the host to the frame: open a content (lParam a const std::string*), which is an address
  // in
  // ASCII, or an absolute path in the file system's encoding. The answer is 1, or 0 when it is
  // nothing that can be added.
  kMessageOpenContent = 0x3083,

  // From the host to the frame: show only unread posts (wParam 1) or all of them (0); another
  // wParam changes nothing. The answer is 1 while only unread ones are shown, otherwise 0.
  kMessageShowUnreadOnly = 0x3080,
};

// The wParam of kMessageChannelResult.
enum ChannelResult : int {
  kChannelRefreshed = 0,
  kRunEnded = 1,
  kDownloadFailed = -2,
  kDocumentRefused = -3,
  kLoginWanted = -4,  // the download failed for want of a name and a password, or refused ones
};

}  // namespace feedloom
