// The numbers of the commands that menus, toolbars and keys issue.
#pragma once

namespace feedloom {

enum Command {
  kCommandAddChannel = 0x8006,
  kCommandAddGroup = 0x8007,
  kCommandDeleteGroup = 0x8009,
  kCommandRenameGroup = 0x800a,
  kCommandTodayInGroup = 0x800c,
  kCommandSearchGroup = 0x800d,
  kCommandMarkAllRead = 0x800e,
  kCommandMarkAllUnread = 0x800f,
  kCommandDeleteChild = 0x8011,  // a channel or a cabinet
  kCommandMoveChannel = 0x8012,
  kCommandRenameChild = 0x8013,  // a channel or a cabinet
  kCommandRefreshChannel = 0x8014,
  kCommandSearchChannel = 0x8015,
  kCommandChannelInfo = 0x8016,
  kCommandSearchAllCabinets = 0x8018,
  kCommandSearchCabinet = 0x801a,
  kCommandRefreshGroup = 0x801d,
  kCommandImportFile = 0x8027,
  kCommandImportAddress = 0x8028,
  kCommandSynchronise = 0x802a,
  kCommandExportOpml = 0x802b,
  kCommandSettings = 0x802d,
  kCommandAddCabinet = 0x802e,
  kCommandMarkRead = 0x802f,
  kCommandMarkUnread = 0x8030,
  kCommandDelete = 0x8031,
  kCommandDeleteAll = 0x8032,
  kCommandToday = 0x8035,
  kCommandScrap = 0x8036,

  // Commands of toolbars and keys only. Hosts do not know these numbers.
  kCommandRefreshAll = 1,
  kCommandRefreshSelection,
  kCommandDeleteSelection,
  kCommandDirectory,
  kCommandUndo,
  kCommandMoveUp,
  kCommandMoveDown,
  kCommandNextUnread,
  kCommandPreviousUnread,
  kCommandScreenOn,
  kCommandScreenBack,
  kCommandToggleRead,
  kCommandUnreadOnly,
  kCommandOpenPost,
  kCommandShowPost,
  kCommandSelectAll,
  kCommandFocusSearch,
  kCommandNextPane,
  kCommandPreviousPane,
  kCommandNextDivider,
  kCommandOpenMenu,
  kCommandKeySheet,
  kCommandFindAddress,
  kCommandUseAddress,

  // Commands of the browser's menu and keys.
  kCommandOpenOutside,
  kCommandCopyAddress,
  kCommandCopyText,
  kCommandFindInPage,
  kCommandPrint,
  kCommandZoomIn,
  kCommandZoomOut,
  kCommandZoomNormal,
  kCommandStopDownloads,
  kCommandGoBack,
  kCommandGoForward,
  kCommandFocusAddress,
  kCommandStopLoad,
};

}  // namespace feedloom
