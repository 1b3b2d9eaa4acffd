// What the store costs beyond SQLite: a folder of 100,000 posts next to the bare statements, and
// the unread counts that a start of the module asks for. The database is in the page cache; the
// pauses between statements are left out.
#include <fmt/core.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "bench/Goals.h"
#include "bench/StoreContents.h"
#include "store/Channels.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

constexpr const char* kLoadFolder = "LoadFolderWithPosts, 100,000 posts";
constexpr const char* kBareTables = "bare sqlite3_get_table of the same statements";
constexpr const char* kUnread = "unread counts, 1,000 channels with 200,000 posts";
constexpr int kFolderId = 1;

// The statements that LoadFolderWithPosts runs.
std::vector<std::string> FolderStatements(Store& store) {
  StatementLog log;
  ChannelWithPosts folder;
  return LoadFolderWithPosts(store, kFolderId, folder) ? log.Take() : std::vector<std::string>();
}

void LoadFolder(benchmark::State& state, Store& store, std::size_t posts) {
  for (auto _ : state) {
    ChannelWithPosts folder;
    if (!LoadFolderWithPosts(store, kFolderId, folder) || folder.posts.size() != posts) {
      state.SkipWithError("the folder was not loaded");
    }
  }
}

void BareTables(benchmark::State& state, const std::string& dbPath,
                const std::vector<std::string>& statements) {
  for (auto _ : state) {
    sqlite3* handle = nullptr;
    int status = sqlite3_open(dbPath.c_str(), &handle);
    for (const std::string& sql : statements) {
      char** cells = nullptr;
      status |= sqlite3_get_table(handle, sql.c_str(), &cells, nullptr, nullptr, nullptr);
      sqlite3_free_table(cells);
    }
    sqlite3_close(handle);
    if (status != SQLITE_OK) state.SkipWithError("a statement failed");
  }
}

void UnreadCounts(benchmark::State& state, Store& store) {
  for (auto _ : state) {
    std::vector<FolderRow> folders;
    std::vector<ChannelRow> channels;
    const bool loaded = LoadFolderList(store, folders) && LoadChannelList(store, channels);
    if (!loaded || CountUnreadPosts(store) <= 0) state.SkipWithError("nothing was counted");
  }
}

int Main(int argc, char** argv) {
  constexpr int kFolderPosts = 100'000;
  TestStore folderStore;
  FillStore(folderStore, 1, 50, kFolderPosts);
  TestStore countStore;
  FillStore(countStore, 20, 1'000, 200'000);
  const std::vector<std::string> statements = FolderStatements(folderStore.Get());
  if (statements.size() != 2) return 1;
  const std::string dbPath = folderStore.DbPath();

  benchmark::RegisterBenchmark(kLoadFolder, [&](benchmark::State& state) {
    LoadFolder(state, folderStore.Get(), kFolderPosts);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(kBareTables, [&](benchmark::State& state) {
    BareTables(state, dbPath, statements);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(kUnread, [&](benchmark::State& state) {
    UnreadCounts(state, countStore.Get());
  })->Unit(benchmark::kMillisecond);
  const Measurements measured = RunAllBenchmarks(argc, argv);

  bool met = true;
  if (measured.Fastest(kLoadFolder) > 0 && measured.Fastest(kBareTables) > 0) {
    const double ratio = measured.Fastest(kLoadFolder) / measured.Fastest(kBareTables);
    met = MeetsAtMost("folder with posts to bare tables", ratio, 1.5, " times");
  }
  if (measured.Fastest(kUnread) > 0) {
    met = MeetsAtMost("unread counts", measured.Fastest(kUnread) * 1e3, 150, " ms") && met;
  }
  return met ? 0 : 1;
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) { return feedloom::Main(argc, argv); }
