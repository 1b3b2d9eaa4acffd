// The search in the texts of 200,000 posts of 2 KB (in UTF-8), half of them Korean: how long the
// index takes to fill, how large it is, and how soon the first 100 hits are there, beside a plain
// scan. Words are as frequent as in a language: the n-th one n times rarer than the first.
#include <fmt/core.h>
#include <sqlite3.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <random>

#include "bench/Goals.h"
#include "store/StoreKit.h"
#include "store/TextIndex.h"
#include "store/TextSearch.h"

namespace feedloom {
namespace {

constexpr int kPosts = 200'000;
constexpr std::size_t kTextSize = 2'000;  // bytes
constexpr int kWords = 20'000;
constexpr double kMostMilliseconds = 50;

double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string Syllable(int number) {
  const int code = 0xAC00 + number % 11'172;
  return {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 0x3F)),
          static_cast<char>(0x80 | (code & 0x3F))};
}

// The word with this rank. Some hundred syllables make most of the Korean ones.
std::string Word(int rank, bool isKorean) {
  std::string word;
  if (!isKorean) {
    for (int rest = rank + 30; rest > 0; rest /= 26) word += static_cast<char>('a' + rest % 26);
    return word;
  }
  for (int rest = rank + 1, i = 0; i < 2 + rank % 2; ++i, rest /= 7) {
    word += Syllable((rest * 37 + i * 11) % (rank < 2'000 ? 300 : 900) * 12);
  }
  return word;
}

class Texts {
 public:
  std::string Next(bool isKorean, std::size_t size) {
    std::string text;
    while (text.size() < size) text += Word(Rank(), isKorean) + ' ';
    return text;
  }

 private:
  int Rank() {
    return static_cast<int>(std::pow(kWords, std::uniform_real_distribution(0., 1.)(random_))) - 1;
  }
  std::mt19937 random_{28};
};

void Fill(TestStore& db) {
  const CodePage codePage = db.Get().TextCodePage();
  db.Sql("insert into TB_CHANNEL(channel_id, channel_folderID, channel_title) values(1, 1, 'A')");
  sqlite3* handle = nullptr;
  sqlite3_stmt* insert = nullptr;
  sqlite3_open(db.DbPath().c_str(), &handle);
  sqlite3_exec(handle, "begin", nullptr, nullptr, nullptr);
  sqlite3_prepare_v2(handle,
                     "insert into TB_POST(post_channelID, post_title, post_desc, post_pubDate) "
                     "values(1, ?1, ?2, datetime(1000000000 + ?3 * 60, 'unixepoch'))",
                     -1, &insert, nullptr);
  Texts texts;
  for (int i = 0; i < kPosts; ++i) {
    const std::string title = codePage.FromUtf8(texts.Next(i % 2 == 0, 60));
    const std::string text = codePage.FromUtf8(texts.Next(i % 2 == 0, kTextSize));
    sqlite3_bind_text(insert, 1, title.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_text(insert, 2, text.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_int(insert, 3, i);
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  sqlite3_exec(handle, "commit", nullptr, nullptr, nullptr);
  sqlite3_close(handle);
}

struct Query {
  const char* name;
  std::string text;
};

std::vector<Query> Queries() {
  const std::string korean = Word(4, true), other = Word(9, true);
  return {{"a frequent word", Word(3, false)},
          {"a rare word", Word(15'000, false)},
          {"three Korean syllables", Word(101, true)},
          {"a frequent Korean word", korean},
          {"a phrase", '"' + Word(20, false) + ' ' + Word(35, false) + '"'},
          {"nothing at all", "zzzzzzq"},
          {"a phrase of frequent words that stand apart",
           '"' + Word(2, false) + ' ' + Word(900, false) + '"'},
          {"a Korean phrase", '"' + korean + ' ' + other + '"'},
          {"three syllables of frequent pairs", korean.substr(0, 6) + Word(11, true).substr(3, 3)},
          {"two words", Word(50, false) + ' ' + Word(60, false)}};
}

// The fastest of some searches, in milliseconds.
double Search(Store& store, const std::string& query, int times, std::size_t& hits) {
  double fastest = 1e9;
  for (int i = 0; i < times; ++i) {
    fastest = std::min(fastest, 1e3 * Seconds([&] {
                                  const auto found =
                                      SearchTexts(store, {.query = query, .most = 100});
                                  hits = found ? found->posts.size() : 0;
                                }));
  }
  return fastest;
}

int Main() {
  TestStore plain;
  Fill(plain);
  TestStore indexed;
  std::filesystem::copy_file(plain.DbPath(), indexed.DbPath(),
                             std::filesystem::copy_options::overwrite_existing);
  indexed.AddTables({"text_index.sql"});
  const double fill = Seconds([&] {
    while (IndexSomeTexts(indexed.Get()).value_or(0) > 0) {
    }
  });
  fmt::print("{} texts indexed in {:.0f} s\n", kPosts, fill);
  std::fflush(stdout);
  const double index =
      std::stod(indexed.Value("select sum(length(block)) from TB_TEXT_INDEX_data"));
  const double texts =
      std::stod(indexed.Value("select sum(length(cast(post_desc as blob))) from TB_POST"));
  bool met = MeetsAtMost("index to texts", index / texts, 0.6, "");
  for (const auto& [name, query] : Queries()) {
    std::size_t hits = 0;
    std::size_t scanned = 0;
    const double taken = Search(indexed.Get(), query, 5, hits);
    const double scan = Search(plain.Get(), query, 1, scanned);
    met = MeetsAtMost(fmt::format("{}: {} hits, scan {:.0f} ms", name, hits, scan), taken,
                      kMostMilliseconds, " ms") &&
          met;
    met = hits == scanned && met;
  }
  return met ? 0 : 1;
}

}  // namespace
}  // namespace feedloom

int main() { return feedloom::Main(); }
