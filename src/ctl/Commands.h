// What feedloomctl can do: one function a command, with the options that it was given. Each prints
// its result to stdout and what went wrong to stderr, and returns the exit status. Texts of options
// are UTF-8.
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
  std::string profileDir;  // empty: the default one
  bool json = false;
};

struct InitOptions {
  std::optional<std::string> codePage;  // none: as fits the language
  std::optional<std::string> language;  // none: the user's locale decides
};
int RunInit(const GlobalOptions& global, const InitOptions& options);

int RunCheck(Session& session, const std::string& source);

struct AddOptions {
  std::string address;
  std::string folder;  // empty: the first folder
  std::string title;   // empty: the feed's own
};
int RunAdd(Session& session, const AddOptions& options);

int RunList(Session& session);

// To the file `path`; from the file or the address `source`.
int RunExport(Session& session, const std::string& path);
int RunImport(Session& session, const std::string& source);

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
};
int RunPosts(Session& session, const PostsOptions& options);

struct ShowOptions {
  int post = 0;
  std::string output;  // a file for the page's own bytes; empty: stdout
};
int RunShow(Session& session, const ShowOptions& options);

// Just one of the lists is given.
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
