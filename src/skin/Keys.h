// The names of the host's texts and skin values. Each name is defined once, here or in one of the
// .def files.
#pragma once

#include "files/RegistryKeys.h"

namespace feedloom {

// Sections of the host's tables.
inline constexpr char kSectionTexts[] = "FEEDLOOM";
inline constexpr char kSectionHtml[] = "RSS_HTML";
inline constexpr char kSectionLeft[] = "RSS_LEFT";
inline constexpr char kSectionRightTopToolbar[] = "RSS_RIGHTTOP_TOOLBAR";
inline constexpr char kSectionRightBottom[] = "RSS_RIGHT_BOTTOM";
inline constexpr char kSectionControls[] = "RSS_COMMON_CTRL_IMAGE";
inline constexpr char kSectionSearchDialog[] = "RSS_DLG_SEARCH";
inline constexpr char kSectionScrapDialog[] = "RSS_DLG_SCRAP";
inline constexpr char kSectionAddChannel[] = "RSS_DLG_ADDCHANNEL";
inline constexpr char kSectionAddGroup[] = "RSS_DLG_ADDGROUP";
inline constexpr char kSectionRenameGroup[] = "RSS_DLG_RENAMEGROUP";
inline constexpr char kSectionAddCabinet[] = "RSS_DLG_ADDCABINET";
inline constexpr char kSectionRenameChannel[] = "RSS_DLG_RENAMECHANNEL";
inline constexpr char kSectionMoveChannel[] = "RSS_DLG_MOVECHANNEL";
inline constexpr char kSectionChannelInfo[] = "RSS_DLG_CHANNELINFO";
inline constexpr char kSectionOpml[] = "RSS_DLG_OPML";
inline constexpr char kSectionSync[] = "RSS_DLG_SYNC";
inline constexpr char kSectionDirectory[] = "RSS_DLG_DIRECTORY";
inline constexpr char kSectionPanel[] = "RSS_CTRL_PANEL";
inline constexpr char kSectionAnnounce[] = "RSS_DLG_ANNOUNCE";
inline constexpr char kSectionMsgBox[] = "GLAZEKIT_UI";
inline constexpr char kSectionColors[] = "RSS_COLORS";
inline constexpr char kSectionFont[] = "THEMEMANAGER_FONT";
inline constexpr char kSectionHost[] = "HALVIX";  // the host program's own texts

// The keys of texts (in kSectionTexts) and of skin values (each in its section).
#define FEEDLOOM_TEXT(constant, key) inline constexpr char constant[] = key;
#include "skin/TextKeys.def"
#undef FEEDLOOM_TEXT
#define FEEDLOOM_SKIN(constant, section, key, kind) inline constexpr char constant[] = key;
#include "skin/SkinKeys.def"
#undef FEEDLOOM_SKIN

// The keys of texts in kSectionHost.
#define FEEDLOOM_HOST_TEXT(constant, key) inline constexpr char constant[] = key;
#include "skin/HostTextKeys.def"
#undef FEEDLOOM_HOST_TEXT

}  // namespace feedloom
