#pragma once

#include <string>

namespace feedloom {

class Desk;
class GroupTreeModel;
class Reading;
class Refreshing;
class Skin;
struct FeedCheckAnswer;

// Whether the menus of channels offer new addresses: in a host that wishes for helpful dialogs, and
// has the texts.
bool OffersNewAddresses(const Skin& skin);

// Gives a channel whose feed has gone elsewhere its new address, when the user agrees. A channel
// that is gone is passed over. Interface thread only. Addresses are ASCII.
class NewAddresses {
 public:
  // All that is passed by reference must outlive the object, and `refreshing` its check.
  NewAddresses(Desk& desk, Refreshing& refreshing, Reading& reading, GroupTreeModel& model)
      : desk_(desk), refreshing_(refreshing), reading_(reading), model_(model) {}

  // Checks the channel's home page, or else the first page of its server, behind the window, and
  // offers the feed that it names. When there is none, the user is told why, and may see the page.
  void LookFor(int channelId);

  // Shows the channel's address and `address`, and asks whether it shall have that. Its posts stay,
  // and it is refreshed. A folder has an address once. The frame may be destroyed meanwhile.
  void Offer(int channelId, const std::string& address);

 private:
  void OnAnswer(int channelId, const std::string& page, const FeedCheckAnswer& answer);
  void TellNone(const std::string& page, const FeedCheckAnswer& answer);
  void MovePeriod(const std::string& from, const std::string& to);
  const char* Change(int channelId, const std::string& address);
  std::string PageOf(int channelId, const std::string& feedAddress) const;
  std::string Text(const char* key) const;

  Desk& desk_;
  Refreshing& refreshing_;
  Reading& reading_;
  GroupTreeModel& model_;
};

}  // namespace feedloom
