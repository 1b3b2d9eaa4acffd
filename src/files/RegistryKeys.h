// The registry keys under which the host and the module keep their values, and these values' names.
#pragma once

namespace feedloom {

inline constexpr char kHostKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0";
// The module's own settings.
inline constexpr char kModuleKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0\\Skyfold";
// What the module's window remembers of itself.
inline constexpr char kPeriodsKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0\\Skyfold\\Periods";
inline constexpr char kViewKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0\\Skyfold\\View";

// The values of the host's registry key.
inline constexpr char kValueImageDir[] = "IMAGEDIR";
inline constexpr char kValueIniDir[] = "INIDIR";
inline constexpr char kValueCurrentPath[] = "CURRENT_PATH";
inline constexpr char kValueWorkDir[] = "WORKDIR";
inline constexpr char kValueProfileDir[] = "PROFILE_DIR";  // where the profile was last
inline constexpr char kValueJournal[] = "JOURNAL";         // kJournalOlder
inline constexpr char kValueAppTitle[] = "APP_TITLE";
inline constexpr char kValueLanguage[] = "CORVANE_LANG";
inline constexpr char kValueModelName[] = "CORVANE_DISPLAY_MODELNAME";
inline constexpr char kValueDefaultModelName[] = "CORVANE_DEFAULT_MODELNAME";
inline constexpr char kValuePlatform[] = "CORVANE_PLATFORM";
inline constexpr char kValueOsType[] = "CORVANE_OSTYPE";
inline constexpr char kValueDebugMode[] = "Debug Mode";
inline constexpr char kValueCodePage[] = "CODEPAGE";
inline constexpr char kValuePostLinks[] = "POST_LINKS";         // kLinksInPane, kLinksOutside
inline constexpr char kValueListPlace[] = "LIST_PLACE";         // kListAbove, kListBeside
inline constexpr char kValueNotice[] = "NOTICE";                // kNoticeChannels
inline constexpr char kValueStart[] = "START";                  // kStartLast
inline constexpr char kValueEmptyList[] = "EMPTY_LIST";         // kEmptyListLine
inline constexpr char kValueDialogs[] = "DIALOGS";              // kDialogsHelpful
inline constexpr char kValueSelection[] = "SELECTION";          // kSelectionCareful
inline constexpr char kValueLenient[] = "LENIENT";              // kLenientOn
inline constexpr char kValuePeriods[] = "PERIODS";              // kPeriodsOn
inline constexpr char kValueIcons[] = "ICONS";                  // kIconsOn
inline constexpr char kValueFilters[] = "FILTERS";              // kFiltersOn
inline constexpr char kValueSearch[] = "SEARCH";                // kSearchText
inline constexpr char kValueUpdates[] = "UPDATES";              // kUpdatesByHost
inline constexpr char kValueClose[] = "CLOSE";                  // kCloseToTray
inline constexpr char kValueTrayTold[] = "TRAY_TOLD";           // there once the user knows
inline constexpr char kValueNotifications[] = "NOTIFICATIONS";  // kNotificationsOn
// When halvix last had the channels refreshed by themselves, seconds since 1970.
inline constexpr char kValueLastUpdate[] = "LAST_UPDATE";
inline constexpr char kValueWindowGeometry[] = "WINDOW_GEOMETRY";  // of the host's main window

// The value of kValueJournal: the user has been told that the database is in the older mode.
inline constexpr char kJournalOlder[] = "OLDER";

// The values of kValuePostLinks.
inline constexpr char kLinksInPane[] = "PANE";
inline constexpr char kLinksOutside[] = "SYSTEM";

// The values of kValueListPlace; anything else is the default.
inline constexpr char kListAbove[] = "ABOVE";
inline constexpr char kListBeside[] = "BESIDE";

// The value of kValueNotice; anything else is the default.
inline constexpr char kNoticeChannels[] = "CHANNELS";

// The value of kValueStart that asks for more than the main page.
inline constexpr char kStartLast[] = "LAST";

// The value of kValueEmptyList that asks for a line in place of the main page.
inline constexpr char kEmptyListLine[] = "LINE";

// The value of kValueDialogs; anything else is the default.
inline constexpr char kDialogsHelpful[] = "HELPFUL";

// The value of kValueSelection; anything else is the default.
inline constexpr char kSelectionCareful[] = "CAREFUL";

// The value of kValueLenient; anything else is the default.
inline constexpr char kLenientOn[] = "ON";

// The value of kValuePeriods; anything else is the default.
inline constexpr char kPeriodsOn[] = "ON";

// The value of kValueSearch.
inline constexpr char kSearchText[] = "TEXT";

// The value of kValueIcons that asks for them, and the one that halvix writes where the user does
// not want them; anything else is the default, too.
inline constexpr char kIconsOn[] = "ON";
inline constexpr char kIconsOff[] = "OFF";

// The value of kValueFilters; anything else is the default.
inline constexpr char kFiltersOn[] = "ON";

// The value of kValueUpdates; anything else is the default.
inline constexpr char kUpdatesByHost[] = "HOST";

// The value of kValueClose with which halvix goes on without its window; anything else ends it.
inline constexpr char kCloseToTray[] = "TRAY";

// The value of kValueNotifications with which halvix uses the desktop's; anything else is none.
inline constexpr char kNotificationsOn[] = "ON";

// The values of the module's registry key. The first seven are the user's settings, which stand
// there twice: as numbers, and as decimal texts under these names with kTextSuffix appended.
inline constexpr char kValueNewFeedMode[] = "NewFeedMode";
inline constexpr char kValueNewFeedDuration[] = "NewFeedDuration";
inline constexpr char kValueNewFeedMsgDuration[] = "NewFeedMsgDuration";
inline constexpr char kValueNewFeedMsgTransparency[] = "NewFeedMsgTransparency";
inline constexpr char kValuePreviewMode[] = "PreviewMode";
inline constexpr char kValueFeedDeleteMode[] = "FeedDeleteMode";
inline constexpr char kValueFeedDeleteDate[] = "FeedDeleteDate";
inline constexpr char kTextSuffix[] = "Str";
inline constexpr char kValueBlockRemoteImages[] = "BlockRemoteImages";
inline constexpr char kValueUserAgent[] = "UserAgent";

// The values of the window's memory, texts, most of numbers.
inline constexpr char kValuePanes[] = "Panes";            // the tree's width, the list's height
inline constexpr char kValueColumns[] = "Columns";        // the widths of the list's columns
inline constexpr char kValueSorting[] = "Sorting";        // the list's column, 1 when descending
inline constexpr char kValueScope[] = "SearchScope";      // SearchScope
inline constexpr char kValueZoom[] = "Zoom";              // steps from the normal size of pages
inline constexpr char kValueClosed[] = "Closed";          // RowKind and id, of each closed group
inline constexpr char kValueSelected[] = "Selected";      // RowKind and id of the tree's row
inline constexpr char kValueUnreadOnly[] = "UnreadOnly";  // 1 when only unread posts are shown
inline constexpr char kValueMoved[] = "Moved";            // channels and addresses that were told
inline constexpr char kValuePosts[] = "Posts";            // ids: current, on the first line, shown

}  // namespace feedloom
