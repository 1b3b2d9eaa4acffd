// Channels whose feeds have gone elsewhere for good are told once.

#include "shell/MovedChannels.h"
#include "ui/Fakes.h"

namespace feedloom {

TEST(MovedChannels, EachAddressOfAChannelIsToldOnceAlsoAfterAnotherStart) {
  const ShippedSkin skin("ENG");
  const TempFolder folder;
  FakeRefreshing refreshing;
  SubscriptionList list{{"News", {{.id = 1, .title = "Daily"}, {.id = 12, .title = "Weekly"}}}};
  const auto told = [&] {
    return TellMovedOnce(skin.Get(), Registry(folder.File("registry.reg")), list, refreshing);
  };
  refreshing.visits[12].movedTo = "http://new.example/";
  EXPECT_EQ(told(), "") << "a host that says nothing";
  skin.SetHostValue(kValueDialogs, kDialogsHelpful);
  const std::string one = "A feed has moved; the channel's menu can use its new address: Weekly";
  EXPECT_EQ(told(), one);
  EXPECT_EQ(told(), "");
  refreshing.visits[1].movedTo = "http://new.example/";
  refreshing.visits[12].movedTo = "http://newer.example/";
  EXPECT_EQ(told(), "2 feeds have moved; the channels' menus can use their new addresses.");
  list[0].channels[0].xmlLink = "http://new.example/";  // the user has agreed
  EXPECT_EQ(told(), "");
  refreshing.visits[12].movedTo = "";
  EXPECT_EQ(told(), "");
  refreshing.visits[12].movedTo = "http://new.example/";
  EXPECT_EQ(told(), one) << "it has come back, and moved again";
}

}  // namespace feedloom
