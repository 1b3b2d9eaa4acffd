#include "host/CommandLine.h"

#include <CLI/CLI.hpp>

namespace feedloom {

std::optional<int> ReadCommandLine(int argc, const char* const* argv, HostOptions& options) {
  constexpr int kUsageError = 2;
  CLI::App app("Feedloom, a desktop feed reader", "halvix");
  app.set_version_flag("--version", "halvix " FEEDLOOM_VERSION);
  app.add_option("--profile", options.profileDir, "The profile's directory; made when missing")
      ->type_name("DIR");
  app.add_option("--lang", options.language, "KOR or ENG; a new profile starts as the locale says")
      ->check(CLI::IsMember({"KOR", "ENG"}, CLI::ignore_case));
  app.add_option("--code-page", options.codePage,
                 "EUC-KR (Korean), or UTF-8 as without it, for a new profile")
      ->check(CLI::IsMember({"EUC-KR", "UTF-8"}, CLI::ignore_case));
  app.add_option("--screenshot", options.screenshot,
                 "Show the first folder's first post, save the window's picture (PNG) and leave")
      ->type_name("FILE");
  app.add_flag("--hidden", options.isHidden,
               "Start in the desktop's tray, or minimised where there is none");
  app.add_flag("--timings", options.timings,
               "Tell on standard error when the steps of the start and each page are done");
  app.add_option("content", options.contents,
                 "Addresses of feeds or pages to add, and OPML files to import")
      ->type_name("CONTENT");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsageError;
  }
  return std::nullopt;
}

}  // namespace feedloom
