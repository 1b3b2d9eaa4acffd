#include "ctl/CommandLine.h"

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>

#include "ctl/Commands.h"
#include "ctl/CompletedCommands.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "ctl/Since.h"
#include "ctl/TextHits.h"

namespace feedloom {
namespace {

constexpr int kUsageError = 2;
constexpr char kUserHelp[] =
    "Your name at the feed's server; the password is read from standard input";

// The values of the arguments. The option parser writes into them, so they must outlive its parse.
struct Arguments {
  GlobalOptions global;
  InitOptions init;
  BackupOptions backup;
  CheckOptions check;
  std::string place;
  AddOptions add;
  ImportOptions opml;
  DirectoryOptions directory;
  RefreshOptions refresh;
  PostsOptions posts;
  IndexOptions index;
  ShowOptions show;
  Targets targets;
  std::string status;
  int post = 0;
  int cabinet = 0;
  int days = 0;
  std::string shell;

  // Runs the command that the arguments name.
  std::function<int()> run;
};

CLI::App* AddSubcommand(CLI::App& app, const char* name, const char* help) {
  CLI::App* sub = app.add_subcommand(name, help)->fallthrough();
  return sub->footer("Every command takes --profile DIR and --json.");
}

// Adds a command that runs on an open profile, whose database it uses so.
CLI::App* AddCommand(CLI::App& app, Arguments& arguments, const char* name, const char* help,
                     std::function<int(Session&)> command, DatabaseUse use = DatabaseUse::Read) {
  CLI::App* sub = AddSubcommand(app, name, help);
  sub->callback([&arguments, command = std::move(command), use] {
    arguments.run = [&arguments, command, use] {
      const auto session = Session::Open(arguments.global, use);
      return session ? command(*session) : kFailure;
    };
  });
  return sub;
}

void AddTargets(CLI::App* sub, Arguments& arguments) {
  CLI::Option_group* group = sub->add_option_group("what", "Just one of these");
  group->add_option("--post", arguments.targets.posts, "Posts by id")->type_name("ID");
  group->add_option("--channel", arguments.targets.channels, "Channels by id")->type_name("ID");
  group->add_option("--folder", arguments.targets.folders, "Folders by id")->type_name("ID");
  group->require_option(1);
}

void AddProfileCommands(CLI::App& app, Arguments& a) {
  CLI::App* init = AddSubcommand(app, "init", "Make a profile");
  init->add_option("--code-page", a.init.codePage, "EUC-KR (Korean), or UTF-8 as without it")
      ->check(CLI::IsMember({"EUC-KR", "UTF-8"}, CLI::ignore_case));
  init->add_option("--lang", a.init.language, "KOR or ENG; without it as the locale says")
      ->check(CLI::IsMember({"KOR", "ENG"}, CLI::ignore_case));
  init->callback([&a] { a.run = [&a] { return RunInit(a.global, a.init); }; });

  CLI::App* backup = AddSubcommand(app, "backup", "Write the whole profile to one file");
  backup->add_option("file", a.backup.file, "The file, which is replaced")->required();
  backup->add_flag("--with-passwords", a.backup.passwords,
                   "Also the names and passwords for feeds' servers");
  backup->callback([&a] { a.run = [&a] { return RunBackup(a.global, a.backup); }; });

  CLI::App* restore = AddSubcommand(app, "restore", "Give the profile what a backup holds");
  restore->add_option("file", a.place, "The backup")->required();
  restore->callback([&a] { a.run = [&a] { return RunRestore(a.global, a.place); }; });

  AddSubcommand(app, "convert", "Give the profile UTF-8 texts in place of Korean ones (EUC-KR)")
      ->callback([&a] { a.run = [&a] { return RunConvert(a.global); }; });

  AddCommand(app, a, "list", "List folders, channels and cabinets",
             [](Session& session) { return RunList(session); });
}

void AddFeedCommands(CLI::App& app, Arguments& a) {
  CLI::App* check = AddCommand(
      app, a, "check", "Print what the reader sees in a feed, as JSON",
      [&a](Session& session) { return RunCheck(session, a.check); }, DatabaseUse::None);
  check->add_option("source", a.check.source, "A file or an address")->required();
  check->add_option("--user", a.check.user, kUserHelp)->type_name("NAME");

  CLI::App* add = AddCommand(
      app, a, "add", "Subscribe to a feed",
      [&a](Session& session) { return RunAdd(session, a.add); }, DatabaseUse::Write);
  add->add_option("url", a.add.address, "The feed's address")->required();
  add->add_option("--folder", a.add.folder, "The folder's name; made when there is none");
  add->add_option("--title", a.add.title, "The channel's title, instead of the feed's own");
  add->add_option("--user", a.add.user, kUserHelp)->type_name("NAME");

  CLI::App* refresh = AddCommand(
      app, a, "refresh", "Fetch the feeds and store their new posts",
      [&a](Session& session) { return RunRefresh(session, a.refresh); }, DatabaseUse::Write);
  auto* channel = refresh->add_option("--channel", a.refresh.channel, "One channel by id");
  refresh->add_option("--folder", a.refresh.folder, "The channels of a folder by id")
      ->excludes(channel);
}

void AddExchangeCommands(CLI::App& app, Arguments& a) {
  CLI::App* exporting = AddCommand(app, a, "export", "Write the subscriptions to an OPML file",
                                   [&a](Session& session) { return RunExport(session, a.place); });
  exporting->add_option("file", a.place, "The file, which is replaced; - for standard output")
      ->required();

  CLI::App* importing = AddCommand(
      app, a, "import", "Add the subscriptions of an OPML list",
      [&a](Session& session) { return RunImport(session, a.opml); }, DatabaseUse::Write);
  importing->add_option("list", a.opml.list, "A file or an address; - for standard input")
      ->required();
  importing->add_flag("--doubles", a.opml.doubles,
                      "Add all again, also the folders and channels that are there");

  CLI::App* directory = AddCommand(
      app, a, "directory", "Search the web directory for feeds",
      [&a](Session& session) { return RunDirectory(session, a.directory); }, DatabaseUse::None);
  directory->add_option("word", a.directory.word, "What to look for")->required();
  directory->add_option("--page", a.directory.page, "Which page of 50 results, from 1 on")
      ->check(CLI::PositiveNumber);
}

void AddPosts(CLI::App& app, Arguments& a) {
  CLI::App* posts =
      AddCommand(app, a, "posts", "List posts, newest first; those of a folder channel by channel",
                 [&a](Session& session) { return RunPosts(session, a.posts); });
  auto* channel = posts->add_option("--channel", a.posts.channel, "Of a channel by id");
  auto* folder = posts->add_option("--folder", a.posts.folder, "Of a folder by id");
  auto* cabinet = posts->add_option("--cabinet", a.posts.cabinet, "Of a cabinet by id");
  auto* today = posts->add_flag("--today", a.posts.today, "Unread ones published today");
  auto* word =
      posts->add_option("--search", a.posts.word, "With this word in their title")->excludes(today);
  auto* text =
      posts
          ->add_option("--text", a.posts.text,
                       "Posts and saved posts with this in title or text, the best first: words, "
                       "\"phrases\", beginnings*, title: channel: author: -without since: until:")
          ->check([](const std::string& query) { return QueryFaultWords(query); })
          ->type_name("QUERY")
          ->excludes(today)
          ->excludes(word);
  posts->add_flag("--by-date", a.posts.byDate, "What --text finds newest first")->needs(text);
  posts->add_flag("--unread", a.posts.unread, "Only unread ones");
  posts
      ->add_option("--since", a.posts.since, "Only those of this day (2026-11-23) or age (7d, 12h)")
      ->check([](const std::string& typed) {
        return SinceDate(typed, {}) ? ""
                                    : "neither a day (2026-11-23) nor an age (7d, 12h): " + typed;
      })
      ->type_name("WHEN");
  posts->add_option("--limit", a.posts.limit, "Only so many, from the first one on")
      ->check(CLI::PositiveNumber)
      ->type_name("N");
  folder->excludes(channel)->excludes(cabinet);
  channel->excludes(cabinet)->excludes(today);
  cabinet->excludes(today);
}

void AddReadingCommands(CLI::App& app, Arguments& a) {
  AddPosts(app, a);

  CLI::App* show = AddCommand(app, a, "show", "Print a post's page",
                              [&a](Session& session) { return RunShow(session, a.show); });
  show->add_option("post", a.show.post, "The post's id")->required();
  show->add_option("--output", a.show.output,
                   "Write the page to this file, in the profile's own code page");
}

void AddIndex(CLI::App& app, Arguments& a) {
  CLI::App* index = AddCommand(
      app, a, "index", "Index texts for posts --text that wait for it, and show how many are",
      [&a](Session& session) { return RunIndex(session, a.index); }, DatabaseUse::Write);
  index->add_flag("--rebuild", a.index.rebuild, "Begin the index again");
}

void AddChangingCommands(CLI::App& app, Arguments& a) {
  CLI::App* mark = AddCommand(
      app, a, "mark", "Mark posts read or unread",
      [&a](Session& session) { return RunMark(session, a.status == "read", a.targets); },
      DatabaseUse::Write);
  mark->add_option("status", a.status, "read or unread")
      ->required()
      ->check(CLI::IsMember({"read", "unread"}));
  AddTargets(mark, a);

  CLI::App* remove = AddCommand(
      app, a, "delete", "Delete posts, channels or folders with all they hold",
      [&a](Session& session) { return RunDelete(session, a.targets); }, DatabaseUse::Write);
  AddTargets(remove, a);

  CLI::App* clip = AddCommand(
      app, a, "clip", "Save a copy of a post into a cabinet",
      [&a](Session& session) { return RunClip(session, a.post, a.cabinet); }, DatabaseUse::Write);
  clip->add_option("post", a.post, "The post's id")->required();
  clip->add_option("--cabinet", a.cabinet, "The cabinet's id")->required();

  CLI::App* cleanup = AddCommand(
      app, a, "cleanup", "Delete posts that were stored long ago",
      [&a](Session& session) { return RunCleanup(session, a.days); }, DatabaseUse::Write);
  cleanup->add_option("days", a.days, "Stored so many days ago or earlier; 0 means all")
      ->required()
      ->check(CLI::NonNegativeNumber);
}

// Last of all: the script completes all commands that the program has.
void AddCompletion(CLI::App& app, Arguments& a) {
  CLI::App* completion = app.add_subcommand("completion", "Print a shell's completion of commands");
  const std::vector<std::string> shells(std::begin(kShells), std::end(kShells));
  completion->add_option("shell", a.shell, "The shell")->required()->check(CLI::IsMember(shells));
  completion->callback([&app, &a] {
    a.run = [&app, &a] {
      PrintLine(
          CompletionScript(a.shell, app.get_name(), CompletedCommands(app), CompletedOptions(app)));
      return kSuccess;
    };
  });
}

// What was typed in place of a command, for the user.
std::optional<std::string> UnknownCommand(const CLI::App& app) {
  const std::vector<std::string> words = app.remaining();
  const auto word = std::ranges::find_if(words, [](const auto& each) { return each[0] != '-'; });
  if (!app.get_subcommands().empty() || word == words.end()) return std::nullopt;
  return *word;
}

}  // namespace

int RunCommandLine(int argc, const char* const* argv) {
  CLI::App app("Feedloom from the command line", "feedloomctl");
  Arguments arguments;
  app.set_version_flag("--version", "feedloomctl " FEEDLOOM_VERSION);
  app.add_option("--profile", arguments.global.profileDir, "The profile's directory")
      ->type_name("DIR");
  app.add_flag("--json", arguments.global.json, "Print results for machines");
  app.require_subcommand(1);
  AddProfileCommands(app, arguments);
  AddFeedCommands(app, arguments);
  AddExchangeCommands(app, arguments);
  AddReadingCommands(app, arguments);
  AddIndex(app, arguments);
  AddChangingCommands(app, arguments);
  AddCompletion(app, arguments);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (const auto unknown = UnknownCommand(app); unknown && error.get_exit_code() != 0) {
      PrintError(fmt::format("there is no command {}; --help lists them", *unknown));
      return kUsageError;
    }
    return app.exit(error) == 0 ? kSuccess : kUsageError;
  }
  const int status = arguments.run();
  if (AllPrinted()) return status;
  PrintError("cannot write to stdout");
  return kFailure;
}

}  // namespace feedloom
