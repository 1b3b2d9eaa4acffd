// The queue of a refresh by itself, and what is remembered of servers as text.
#include <sstream>

#include "fetch/FeedMemory.h"
#include "kit/Rows.h"
#include "refresh/RefreshQueue.h"

namespace feedloom {

using namespace std::chrono_literals;

// Does what each word says, and returns the answers. "+5" appends channel 5; "+5a" does with the
// address "a"; "+a" and "+A" append a channel that is not stored with the address "a", in folder 1
// and 2. "c" claims. "-5" removes channel 5, "w" all that wait. "r5>8" renumbers channel 5.
static std::string Answers(const std::string& script) {
  RefreshQueue queue;
  std::istringstream words(script);
  std::string answers;
  for (std::string word; words >> word;) {
    Channel entry;
    int newId = 0;
    std::sscanf(word.c_str(), "%*c%d>%d", &entry.id, &newId);
    entry.folderId = word.back() == 'A' ? 2 : 1;
    entry.xmlLink = word.back() == 'A' ? 'a' : word.back();
    if (word[0] == 'r') queue.Renumber(entry.id, newId);
    if (word[0] == '-') queue.Remove(entry.id);
    if (word[0] == 'w') queue.RemoveWaiting();
    if (word[0] == '+' && !queue.Append(entry)) answers += "refused ";
    if (word[0] != 'c') continue;
    const auto claimed = queue.Claim();
    answers += claimed ? std::to_string(claimed->id) + " " : "none ";
  }
  return answers;
}

TEST(RefreshQueue, ClaimsEachChannelOnceInOrderAndKnowsOneWithoutAnIdByFolderAndAddress) {
  ExpectRows(Answers,
             {"+3 +1 c +2 c c c +4 c -> 3 1 2 none 4 ",
              "+1 +2 +1 c +1 -1 +1 c c -> refused 1 refused 2 1 ",
              "+1 +2 +3 +4 +5 c c -4 -3 -1 -7 c -5 -2 c +6 c -> 1 2 5 none 6 ",
              "+1a +2b c w +1 +2 c +a +b c -> 1 refused 2 refused -1 ",
              "+a +a +b +A c c c --1 +a c -> refused -1 -2 -3 -4 ",
              "+1a +2a -1 +a -2 +a -> refused ",  // its address goes with the last one
              "+a c r-1>8 +8 +a r8>8 -8 +8 -> -1 refused refused ", "+1 +2 r1>9 c c -> 9 2 ",
              "+a +5 +6 c r-1>5 -5 c -> -1 6 "});  // it was stored all along
}

TEST(FeedMemory, ReadsWhatItWroteAndNoDamagedLine) {
  const auto at = [](auto time) { return std::chrono::sys_seconds(time); };
  const FeedVisits visits = {{1, {"http://a/feed", {"\"e\"", "Sat, 21 Nov 2026 12:00:00 GMT"}}},
                             {-3, {"http://b/?q=\xC7\xD1", {"W/\"x y\"", ""}, at(9h)}},
                             {4,
                              {"http://c",
                               {},
                               {},
                               {FeedFaultKind::BrokenXml, 7, 12, "no end"},
                               at(3h),
                               at(1h),
                               at(2h),
                               "http://d",
                               40min}}};
  const std::string text = FeedVisitsText(visits);
  EXPECT_EQ(ReadFeedVisits(text), visits);
  const std::string line = text.substr(text.find("4\thttp://c"));
  const auto with = [&](const char* part, const char* other) {
    return std::string(line).replace(line.find(part), std::string_view(part).size(), other);
  };
  for (const std::string& bad :
       {std::string(), std::string("2"), with("4\t", "x\t"), with("4\t", "99999999999\t"),
        with("2400", "2400x"), with("2400", "2400\t"), with("\t2400", ""), with("no end", "no\1")})
    EXPECT_EQ(ReadFeedVisits(text + bad + "\n"), visits) << bad;
  EXPECT_TRUE(ReadFeedVisits("Feedloom feed memory 1" + text.substr(text.find('\n'))).empty());
  const FeedVisits odd = {{1, {"a\tb"}}, {2, {"a", {"e\n", ""}}}, {3, {"a", {"", "\x7F"}}}};
  EXPECT_EQ(ReadFeedVisits(FeedVisitsText(odd)), FeedVisits());
}

}  // namespace feedloom
