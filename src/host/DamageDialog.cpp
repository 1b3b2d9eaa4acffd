#include "host/DamageDialog.h"

#include <filesystem>

#include "host/ErrorReport.h"
#include "host/Refusal.h"
#include "profile/DatabaseRepair.h"
#include "skin/Keys.h"
#include "threads/Clock.h"

namespace feedloom {
namespace {

// When the file was written, as the user's clock shows it.
std::string TimeOf(const std::string& file) {
  std::error_code ignored;
  const auto written = std::filesystem::last_write_time(file, ignored);
  return FormatLocalTime(std::chrono::file_clock::to_sys(written), "%Y-%m-%d %H:%M");
}

}  // namespace

bool OfferRepair(HostProfile& profile) {
  const ProfilePaths& paths = profile.paths;
  const auto text = [&](const char* key, const std::string& more = "") {
    return ProfileRefusal(key, paths, more).shown;
  };
  const std::string copy = GoodCopy(paths);
  std::vector<std::string> choices = {text(kHostTextDamagedEmpty), text(kHostTextDamagedQuit)};
  if (!copy.empty()) choices.insert(choices.begin(), text(kHostTextDamagedRestore, TimeOf(copy)));
  const int chosen = ShowErrorBox(text(kHostTextDamaged), paths.registry, choices);
  const int fromEnd = static_cast<int>(choices.size()) - chosen;  // the last one is to quit
  if (chosen < 0 || fromEnd == 1) return false;
  Failure failure = profile.lock.Take(paths.dir);
  if (!failure) failure = fromEnd == 2 ? StartEmpty(paths, ShareDir()) : RestoreCopy(paths, copy);
  if (failure) ShowErrorBox(*failure, paths.registry);
  return !failure;
}

}  // namespace feedloom
