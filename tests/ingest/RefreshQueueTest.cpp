#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "ingest/RefreshQueue.h"

namespace feedloom {
namespace {

// Known ids, and -1 for a channel that is not in the store yet.
RefreshEntry Entry(int channelId, std::string address = "http://a/feed", int folderId = 1) {
  RefreshEntry entry;
  entry.channelId = channelId;
  entry.folderId = folderId;
  entry.xmlLink = std::move(address);
  return entry;
}

class QueuedChannels : public testing::Test {
 protected:
  void Append(std::initializer_list<int> channelIds) {
    for (const int id : channelIds) EXPECT_TRUE(queue.Append(Entry(id))) << id;
  }

  // The ids of `count` entries claimed, or of all that wait.
  std::vector<int> Claimed(size_t count = SIZE_MAX) {
    std::vector<int> ids;
    while (ids.size() < count && queue.HasWaiting()) ids.push_back(queue.Claim()->channelId);
    return ids;
  }

  RefreshQueue queue;
};

using Ids = std::vector<int>;

TEST_F(QueuedChannels, EntriesAreClaimedOnceEachInTheOrderOfTheirArrival) {
  Append({3, 1});
  EXPECT_EQ(Claimed(1), Ids({3}));
  Append({2});
  EXPECT_EQ(Claimed(), Ids({1, 2}));
  EXPECT_FALSE(queue.Claim());
  Append({4});
  EXPECT_EQ(Claimed(), Ids({4}));
  EXPECT_FALSE(queue.IsEmpty());
}

TEST_F(QueuedChannels, AChannelIsQueuedOnceUntilItIsRemoved) {
  Append({1, 2});
  EXPECT_FALSE(queue.Append(Entry(1)));
  EXPECT_EQ(Claimed(1), Ids({1}));
  EXPECT_FALSE(queue.Append(Entry(1))) << "while it is being refreshed";
  queue.Remove(1);
  EXPECT_FALSE(queue.Contains(1));
  Append({1});
  EXPECT_EQ(Claimed(), Ids({2, 1}));
}

TEST_F(QueuedChannels, RemovingFromAnywhereKeepsTheOrderOfTheOthers) {
  Append({1, 2, 3, 4, 5});
  EXPECT_EQ(Claimed(2), Ids({1, 2}));
  queue.Remove(4);
  queue.Remove(3);  // the next
  queue.Remove(1);
  queue.Remove(7);  // was never there
  EXPECT_EQ(Claimed(), Ids({5}));
  queue.Remove(5);
  queue.Remove(2);
  EXPECT_TRUE(queue.IsEmpty());
  EXPECT_FALSE(queue.HasWaiting());
  Append({6});
  EXPECT_EQ(Claimed(), Ids({6}));
}

TEST_F(QueuedChannels, AChannelThatIsNotStoredIsKnownByFolderAndAddress) {
  EXPECT_TRUE(queue.Append(Entry(-1, "http://a/feed")));
  EXPECT_FALSE(queue.Append(Entry(-1, "http://a/feed")));
  EXPECT_TRUE(queue.Append(Entry(-1, "http://b/feed")));
  EXPECT_TRUE(queue.Append(Entry(-1, "http://a/feed", 2)));
  EXPECT_EQ(Claimed(), Ids({-1, -2, -3})) << "each has an id of its own";
  queue.Remove(-1);
  EXPECT_TRUE(queue.Append(Entry(-1, "http://a/feed")));
  EXPECT_EQ(Claimed(), Ids({-4}));
}

TEST_F(QueuedChannels, AnAddressIsFreeWhenTheLastChannelThatHasItIsRemoved) {
  EXPECT_TRUE(queue.Append(Entry(1, "http://a/feed")));
  EXPECT_TRUE(queue.Append(Entry(2, "http://a/feed")));
  queue.Remove(1);
  EXPECT_FALSE(queue.Append(Entry(-1, "http://a/feed")));
  queue.Remove(2);
  EXPECT_TRUE(queue.Append(Entry(-1, "http://a/feed")));
}

TEST_F(QueuedChannels, AnInsertedChannelGoesOnUnderItsNewId) {
  queue.Append(Entry(-1, "http://a/feed"));
  EXPECT_EQ(Claimed(), Ids({-1}));
  queue.Renumber(-1, 8);
  EXPECT_FALSE(queue.Contains(-1));
  EXPECT_FALSE(queue.Append(Entry(8)));
  EXPECT_FALSE(queue.Append(Entry(-1, "http://a/feed")));
  queue.Renumber(8, 8);
  queue.Remove(8);
  EXPECT_TRUE(queue.IsEmpty());
}

TEST_F(QueuedChannels, AnEntryThatWaitsIsClaimedUnderItsNewId) {
  Append({1, 2});
  queue.Renumber(1, 9);
  EXPECT_EQ(Claimed(), Ids({9, 2}));
}

TEST_F(QueuedChannels, AChannelThatWasStoredAllAlongLeavesWithItsDouble) {
  queue.Append(Entry(-1, "http://a/feed"));
  Append({5, 6});
  EXPECT_EQ(Claimed(1), Ids({-1}));
  queue.Renumber(-1, 5);
  queue.Remove(5);
  EXPECT_FALSE(queue.Contains(5));
  EXPECT_EQ(Claimed(), Ids({6}));
}

TEST_F(QueuedChannels, RemovingWhatWaitsLeavesWhatIsTaken) {
  EXPECT_TRUE(queue.Append(Entry(1, "http://a/feed")));
  EXPECT_TRUE(queue.Append(Entry(2, "http://b/feed")));
  EXPECT_EQ(Claimed(1), Ids({1}));
  queue.RemoveWaiting();
  EXPECT_TRUE(queue.Contains(1));
  EXPECT_FALSE(queue.Contains(2));
  EXPECT_FALSE(queue.HasWaiting());
  EXPECT_FALSE(queue.Append(Entry(-1, "http://a/feed")));
  EXPECT_TRUE(queue.Append(Entry(-1, "http://b/feed")));
  EXPECT_EQ(Claimed(), Ids({-1}));
}

}  // namespace
}  // namespace feedloom
