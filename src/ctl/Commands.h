// The commands of feedloomctl, one function each. A function prints its result to stdout and errors
// to stderr, and returns the exit status. Texts of options are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace feedloom {

class Session;

inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;

// Options of every command.
struct GlobalOptions {
  std::string profileDir;  // empty: the default profile
  bool json = false;
};

struct InitOptions {
  std::optional<std::string> codePage;  // none: that of the language
  std::optional<std::string> language;  // none: that of the user's locale
};
int RunInit(const GlobalOptions& global, const InitOptions& options);

struct BackupOptions {
  std::string file;
  bool passwords = false;  // the backup holds the logins, too
};
int RunBackup(const GlobalOptions& global, const BackupOptions& options);
int RunRestore(const GlobalOptions& global, const std::string& file);
int RunConvert(const GlobalOptions& global);

// `source` is a file or the address of a feed.
struct CheckOptions {
  std::string source;  // a file or an address
  std::string user;    // as in AddOptions
};
int RunCheck(Session& session, const CheckOptions& options);

struct AddOptions {
  std::string address;
  std::string folder;  // empty: the first folder
  std::string title;   // empty: the feed's own
  std::string user;  // for the feed's server, with a password from standard input; empty: no login
};
int RunAdd(Session& session, const AddOptions& options);

int RunList(Session& session);

// `path` is a file, or "-" for standard output.
int RunExport(Session& session, const std::string& path);

struct ImportOptions {
  std::string list;      // a file, an address, or "-" for standard input
  bool doubles = false;  // add all, also what is there already
};
int RunImport(Session& session, const ImportOptions& options);

struct DirectoryOptions {
  std::string word;
  int page = 1;
};
int RunDirectory(Session& session, const DirectoryOptions& options);

struct RefreshOptions {
  std::optional<int> channel;
  std::optional<int> folder;
};
int RunRefresh(Session& session, const RefreshOptions& options);

struct PostsOptions {
  std::optional<int> channel;
  std::optional<int> folder;
  std::optional<int> cabinet;
  bool today = false;
  std::optional<std::string> word;
  std::optional<std::string> text;   // a query as TextQuery has it: also saved posts, best first
  bool byDate = false;               // what `text` finds, newest first
  bool unread = false;               // only these
  std::optional<std::string> since;  // as SinceDate has it
  std::optional<std::size_t> limit;  // so many from the first one on
};
int RunPosts(Session& session, const PostsOptions& options);

struct IndexOptions {
  bool rebuild = false;  // begin it again
};
int RunIndex(Session& session, const IndexOptions& options);

struct ShowOptions {
  int post = 0;
  std::string output;  // the file that the page is written to; empty: stdout
};
int RunShow(Session& session, const ShowOptions& options);

// The ids that a command applies to. Exactly one of the lists is not empty.
struct Targets {
  std::vector<int> posts;
  std::vector<int> channels;
  std::vector<int> folders;
};
int RunMark(Session& session, bool read, const Targets& targets);
int RunDelete(Session& session, const Targets& targets);

int RunClip(Session& session, int post, int cabinet);

int RunCleanup(Session& session, int days);

}  // namespace feedloom
