// The icons of the channels' sites: whose they are, where they are kept, and how one is asked for.
#pragma once

#include <chrono>
#include <functional>
#include <set>
#include <stop_token>
#include <string>
#include <string_view>

#include "fetch/FetchServices.h"
#include "net/TransferPool.h"
#include "store/Rows.h"

namespace feedloom {

// Returns a picture of the program's own making of what a server has sent, or an empty text when
// that is no picture, or one that is not to be shown. Called on any thread.
using IconMaker = std::function<std::string(std::string_view sent)>;

inline constexpr std::size_t kMaxIconBytes = 64u << 10;
inline constexpr std::chrono::days kIconPeriod{7};  // a site is asked once in this time
inline constexpr std::chrono::seconds kIconTimeLimit{10};

// Returns the site of a channel whose texts are in `codePage`: the origin (UrlOrigin) of its home
// page or, when that is no address of the web (http, https), of its feed. Empty when the feed's
// is none: a local file has no site. Pure; any thread may call it.
std::string SiteOf(const Channel& channel, CodePage codePage);

// Returns the path of the icon of `site` in the work folder. Empty when there is no such
// folder, or the name of the file would be too long. Sites that differ in the case of letters have
// one path. Pure.
std::string SiteIconPath(const std::string& workDir, const std::string& site);

// Returns whether the file at `path` is none, or its site was last asked a period before `now`. A
// file from after `now` counts as none.
bool IsIconDue(const std::string& path, std::chrono::system_clock::time_point now);

// Asks for the icon at `address` (UTF-8) by one request, whose answer may lead on elsewhere. Keeps
// what `make` makes of it at `path`; without an icon what stands there stays. The try counts from
// before the request on, so that one that is broken off is not repeated either. No login is sent.
// Blocks the calling thread, which may be any. Ends within 100 ms of `stop`.
void AskForIcon(const std::string& address, const std::string& path, const FetchServices& services,
                const IconMaker& make, TransferPool& pool, std::stop_token stop);

// Returns the icon that is kept at `path`; empty when there is none. Any thread may call it.
std::string ReadSiteIcon(const std::string& path);

// Removes the files of all icons in the work folder but those at the paths `kept`.
void SweepSiteIcons(const std::string& workDir, const std::set<std::string>& kept);

}  // namespace feedloom
