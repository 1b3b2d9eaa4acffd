// The parts of a refresh by themselves: its queue, and what it remembers of servers.
#include <gtest/gtest.h>

#include <sstream>

#include "ingest/FeedMemory.h"
#include "ingest/RefreshQueue.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

// Does what each word says, and returns the answers. "+5" appends channel 5; "+5a" does with the
// address "a"; "+a" and "+A" append a channel that is not stored with the address "a", in folder 1
// and 2. "c" claims. "-5" removes channel 5, "-w" all that wait. "r5>8" renumbers channel 5. "?5"
// asks for channel 5, "?" for any.
std::string Answers(const std::string& script) {
  RefreshQueue queue;
  std::istringstream words(script);
  std::string answers;
  for (std::string word; words >> word;) {
    RefreshEntry entry;
    char letter = 0;
    int newId = 0;
    const bool hasId =
        std::sscanf(word.c_str() + 1, "%d%c%d", &entry.channelId, &letter, &newId) > 0;
    if (!hasId) letter = word.back();
    const int id = entry.channelId;
    entry.folderId = letter == 'A' ? 2 : 1;
    entry.xmlLink = letter == 0 ? word : letter == 'b' ? "b" : "a";
    if (word[0] == 'r') queue.Renumber(id, newId);
    if (word[0] == '-') hasId ? queue.Remove(id) : queue.RemoveWaiting();
    if (word[0] == '+' && !queue.Append(entry)) answers += "refused ";
    if (word[0] == '?') answers += (hasId ? queue.Contains(id) : !queue.IsEmpty()) ? "yes " : "no ";
    if (word[0] != 'c') continue;
    const auto claimed = queue.Claim();
    answers += claimed ? std::to_string(claimed->channelId) + " " : "none ";
  }
  return answers;
}

TEST(RefreshQueue, ClaimsEachChannelOnceInTheOrderOfTheirArrival) {
  EXPECT_EQ(Answers("+3 +1 c +2 c c c +4 c ?"), "3 1 2 none 4 yes ");
  EXPECT_EQ(Answers("+1 +2 +1 c +1 -1 ?1 +1 c c"), "refused 1 refused no 2 1 ");
  EXPECT_EQ(Answers("+1 +2 +3 +4 +5 c c -4 -3 -1 -7 c -5 -2 ? c +6 c"), "1 2 5 no none 6 ");
  EXPECT_EQ(Answers("+1a +2b c -w ?1 ?2 c +a +b c"), "1 yes no none refused -1 ");
}

TEST(RefreshQueue, KnowsAChannelThatIsNotStoredByFolderAndAddress) {
  EXPECT_EQ(Answers("+a +a +b +A c c c --1 +a c"), "refused -1 -2 -3 -4 ");
  EXPECT_EQ(Answers("+1a +2a -1 +a -2 +a"), "refused ") << "its address goes with the last one";
  EXPECT_EQ(Answers("+a c r-1>8 ?-1 +8 +a r8>8 -8 ?"), "-1 no refused refused no ");
  EXPECT_EQ(Answers("+1 +2 r1>9 c c"), "9 2 ");
  EXPECT_EQ(Answers("+a +5 +6 c r-1>5 -5 ?5 c"), "-1 no 6 ") << "it was stored all along";
}

TEST(FeedMemory, ReadsWhatItWroteAndNoDamagedLine) {
  const FeedVisits visits = {{1, {"http://a/feed", {"\"e\"", "Sat, 21 Nov 2026 12:00:00 GMT"}}},
                             {2,
                              {"http://b/?q=\xC7\xD1",
                               {"W/\"x y\"", ""},
                               std::chrono::sys_seconds(std::chrono::hours(20000))}},
                             {-3, {}}};
  const std::string text = FeedVisitsText(visits);
  EXPECT_EQ(ReadFeedVisits(text), visits);
  for (const char* bad : {"", "2", "2\tb\t\t", "x\tb\t\t\t0", "2\tb\t\t\t1x", "2\tb\t\t\t0\t",
                          "2\tb\t\t\t", "99999999999\tb\t\t\t0", "2\tb\t\x01\t\t0"}) {
    EXPECT_EQ(ReadFeedVisits(text + bad + "\n"), visits) << bad;
  }
  EXPECT_TRUE(ReadFeedVisits("Feedloom feed memory 2" + text.substr(text.find('\n'))).empty());
  const FeedVisits odd = {{1, {"a\tb"}}, {2, {"a", {"e\n", ""}}}, {3, {"a", {"", "\x7F"}}}};
  EXPECT_EQ(ReadFeedVisits(FeedVisitsText(odd)), FeedVisits());
}

TEST(FeedMemory, TwoProgramsWriteOnlyWhatTheyFoundOut) {
  const TempFolder folder;
  FeedMemory one(FeedMemoryPath(folder.Path()));
  FeedMemory other(FeedMemoryPath(folder.Path()));
  const auto save = [](FeedMemory& memory, int channelId, FeedVisit visit, int gone = 0) {
    memory.Remember(channelId, std::move(visit));
    EXPECT_FALSE(memory.Save([gone](int id) { return id != gone; }));
  };
  one.Load();
  other.Load();
  save(one, 1, {"http://a", {"1", ""}});
  save(other, 2, {"http://b", {"2", ""}});
  one.Load();
  EXPECT_EQ(one.Last(1, "http://a").validators.etag, "1");
  EXPECT_EQ(one.Last(2, "http://b").validators.etag, "2");
  EXPECT_EQ(one.Last(2, "http://moved"), FeedVisit{"http://moved"});
  save(one, 3, {"http://c", {"3", ""}}, 2);
  save(one, 1, {"http://a"});
  EXPECT_EQ(ReadFeedVisits(folder.Read("feed_memory")), (FeedVisits{{3, {"http://c", {"3", ""}}}}));
}

}  // namespace
}  // namespace feedloom
