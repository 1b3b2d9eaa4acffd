// What a feed costs beyond the XML library: FeedParser::Parse over documents on disk (in the page
// cache) next to the library's own loading and freeing of the same files. The documents are those
// of the directory FEEDLOOM_FEEDS, or generated ones.
#include <fcntl.h>
#include <fmt/core.h>
#include <libxml/parser.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "bench/Goals.h"
#include "feed/FeedParser.h"
#include "kit/FeedDocuments.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

constexpr const char* kParse = "FeedParser::Parse, all documents";
constexpr const char* kLoad = "bare load and free, all documents";
constexpr double kGoal = 1.6;

void Parse(const std::string& path) {
  FeedParser parser(CodePage::Korean());
  benchmark::DoNotOptimize(parser.Parse(path));
}

bool Load(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  xmlDoc* document = xmlReadFd(file, nullptr, nullptr,
                               XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_COMPACT |
                                   XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  close(file);
  const bool loaded = document != nullptr;
  xmlFreeDoc(document);
  return loaded;
}

template <typename Work>
void OverAll(benchmark::State& state, const std::vector<std::string>& paths, Work work) {
  std::uintmax_t bytes = 0;
  for (const std::string& path : paths) bytes += fs::file_size(path);
  for (auto _ : state) {
    for (const std::string& path : paths) work(path);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

// RSS 1.0 and Atom 0.3. The descriptions of `items` hold no "]]>", the other texts no markup.
std::string RdfDocument(const std::vector<SampleItem>& items) {
  std::string text =
      "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\" "
      "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns=\"http://purl.org/rss/1.0/\">\n"
      "<channel><title>News</title></channel>\n";
  for (const SampleItem& item : items) {
    text += fmt::format(
        "<item><title>{}</title><link>{}</link><dc:date>{}</dc:date><description><![CDATA[{}]]>"
        "</description></item>\n",
        item.title, item.link, item.date, item.description);
  }
  return text + "</rdf:RDF>\n";
}

std::string AtomDocument(const std::vector<SampleItem>& items) {
  std::string text =
      "<feed version=\"0.3\" xmlns=\"http://purl.org/atom/ns#\">\n<title>News</title>\n";
  for (const SampleItem& item : items) {
    text += fmt::format(
        "<entry><title>{}</title><link rel=\"alternate\" href=\"{}\"/><issued>{}</issued>"
        "<summary><![CDATA[{}]]></summary></entry>\n",
        item.title, item.link, item.date, item.description);
  }
  return text + "</feed>\n";
}

// English and Korean texts, some with markup, as feeds of 10, 30 and 100 items have them.
void WriteDocuments(const TempFolder& folder) {
  constexpr std::string_view kTexts[] = {
      "<p>The river rose <b>two metres</b> in one night, and the old bridge &amp; its tower stood "
      "in the water. <a href=\"http://site.example/river\">Read on</a></p>",
      "지난밤 강물이 두 길이나 불어 오래된 다리와 그 탑이 물에 잠겼다. 마을 사람들은 언덕 위로 "
      "올라가 "
      "아침을 기다렸다."};
  for (const int count : {10, 30, 100}) {
    std::vector<SampleItem> items = NumberedItems("http://site.example/post/", count);
    for (std::size_t i = 0; i < items.size(); ++i) {
      for (std::size_t n = 0; n < 1 + i % 8; ++n) items[i].description += kTexts[i % 2];
    }
    const std::string suffix = fmt::format("-{}.xml", count);
    folder.Write("rss" + suffix, RssDocument("News", items));
    folder.Write("rdf" + suffix, RdfDocument(items));
    folder.Write("atom" + suffix, AtomDocument(items));
  }
}

// The files of `directory` that the library loads, sorted.
std::vector<std::string> DocumentsIn(const std::string& directory) {
  std::vector<std::string> paths;
  int refused = 0;
  for (const auto& entry : fs::directory_iterator(directory)) {
    if (!entry.is_regular_file()) continue;
    Load(entry.path()) ? paths.push_back(entry.path()) : void(++refused);
  }
  std::ranges::sort(paths);
  fmt::print("{} documents, {} files left out because they are not well-formed\n", paths.size(),
             refused);
  return paths;
}

struct Comparison {
  std::string path;
  double parse = std::numeric_limits<double>::max();  // microseconds
  double load = std::numeric_limits<double>::max();

  double Ratio() const { return parse / load; }
};

template <typename Work>
double Microseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
      .count();
}

// The fastest of many runs of each, in turn.
Comparison Compare(const std::string& path) {
  constexpr double kBudget = 100'000;  // microseconds
  Comparison best{path};
  for (double spent = 0; spent < kBudget; spent += best.parse + best.load) {
    best.parse = std::min(best.parse, Microseconds([&] { Parse(path); }));
    best.load = std::min(best.load, Microseconds([&] { Load(path); }));
  }
  return best;
}

void PrintWorst(const std::vector<std::string>& paths) {
  constexpr std::size_t kShown = 10;
  std::vector<Comparison> all;
  for (const std::string& path : paths) all.push_back(Compare(path));
  std::ranges::sort(all, std::greater(), &Comparison::Ratio);
  if (!all.empty()) {
    fmt::print("\nsingle documents: median ratio {:.2f}; the highest ones:\n",
               all[all.size() / 2].Ratio());
  }
  fmt::print("{:>6} {:>10} {:>10} {:>9}  document\n", "ratio", "parse us", "load us", "bytes");
  for (std::size_t i = 0; i < std::min(kShown, all.size()); ++i) {
    const Comparison& one = all[i];
    fmt::print("{:6.2f} {:10.1f} {:10.1f} {:9}  {}\n", one.Ratio(), one.parse, one.load,
               fs::file_size(one.path), fs::path(one.path).filename().string());
  }
}

int Main(int argc, char** argv) {
  const TempFolder generated;
  const char* given = std::getenv("FEEDLOOM_FEEDS");
  if (given == nullptr) WriteDocuments(generated);
  const std::vector<std::string> paths = DocumentsIn(given == nullptr ? generated.Path() : given);
  benchmark::RegisterBenchmark(kParse, [&](benchmark::State& state) {
    OverAll(state, paths, Parse);
  })->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark(kLoad, [&](benchmark::State& state) {
    OverAll(state, paths, Load);
  })->Unit(benchmark::kMillisecond);
  const Measurements measured = RunAllBenchmarks(argc, argv);
  PrintWorst(paths);
  if (measured.Fastest(kLoad) == 0 || measured.Fastest(kParse) == 0) return 0;
  const double ratio = measured.Fastest(kParse) / measured.Fastest(kLoad);
  return MeetsAtMost("parse to bare load", ratio, kGoal, " times") ? 0 : 1;
}

}  // namespace
}  // namespace feedloom

int main(int argc, char** argv) { return feedloom::Main(argc, argv); }
