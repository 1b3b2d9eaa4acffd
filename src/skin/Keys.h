// The names under which the host keeps texts, skin values and its configuration. Each stands here
// once.
#pragma once

namespace feedloom {

// Sections of the host's tables.
inline constexpr char kSectionTexts[] = "FEEDLOOM";
inline constexpr char kSectionHtml[] = "RSS_HTML";
inline constexpr char kSectionHost[] = "HALVIX";  // the host program's own texts

// Texts of kSectionTexts.
inline constexpr char kTextAddTooltip[] = "RSS_RIGHT_BOTTOM_TOOLBAR_TOOLTIP_BUTTON_RSS";
inline constexpr char kTextScrapTooltip[] = "RSS_RIGHT_BOTTOM_TOOLBAR_TOOLTIP_BUTTON_SCRAP";
inline constexpr char kTextScrapFinish[] = "RSS_MSG_SCRAP_FINISH";
inline constexpr char kTextUrlScheme[] = "RSS_DLG_DIRECTORY_URLPRE";

// Images and pages of kSectionHtml.
inline constexpr char kImageMainPage[] = "RSS_HTML_MAIN_PAGE";
inline constexpr char kImageTitle[] = "RSS_HTML_POSTNEWS_TITLE_IMG";
inline constexpr char kImageAddButton[] = "RSS_HTML_POSTNEWS_ADDBTN_IMG";
inline constexpr char kImageScrapButton[] = "RSS_HTML_POSTNEWS_SCRAPBTN_IMG";
inline constexpr char kImageBottom[] = "RSS_HTML_POSTNEWS_BOTTOM_IMG";
inline constexpr char kImageSave[] = "RSS_HTML_POSTNEWS_SAVE_IMG";
inline constexpr char kImagePlayerBackground[] = "RSS_HTML_PODCAST_ORG_BG";

// Names in kSectionHost for what a new profile holds.
inline constexpr char kHostTextFolder[] = "PROFILE_FOLDER";
inline constexpr char kHostTextCabinet[] = "PROFILE_CABINET";
inline constexpr char kHostTextSampleChannel[] = "PROFILE_SAMPLE_CHANNEL";

// The host's registry key and its values.
inline constexpr char kHostKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvix3.0";
inline constexpr char kValueImageDir[] = "IMAGEDIR";
inline constexpr char kValueIniDir[] = "INIDIR";
inline constexpr char kValueCurrentPath[] = "CURRENT_PATH";
inline constexpr char kValueWorkDir[] = "WORKDIR";
inline constexpr char kValueAppTitle[] = "APP_TITLE";
inline constexpr char kValueLanguage[] = "CORVANE_LANG";
inline constexpr char kValueModelName[] = "CORVANE_DISPLAY_MODELNAME";
inline constexpr char kValueDefaultModelName[] = "CORVANE_DEFAULT_MODELNAME";
inline constexpr char kValuePlatform[] = "CORVANE_PLATFORM";
inline constexpr char kValueOsType[] = "CORVANE_OSTYPE";
inline constexpr char kValueDebugMode[] = "Debug Mode";
inline constexpr char kValueCodePage[] = "CODEPAGE";

}  // namespace feedloom
