#include "ui/tree/NewAddresses.h"

#include "check/FeedCheckAnswer.h"
#include "feed/WebAddress.h"
#include "net/Url.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "store/Channels.h"
#include "text/Text.h"
#include "ui/Desk.h"
#include "ui/FaultText.h"
#include "ui/Reading.h"
#include "ui/Refreshing.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

// As it is shown in a message, where a "$" would break the line.
std::string Shown(const std::string& address) {
  return ReplaceAll(UrlWithoutLogin(address), "$", "%24");
}

}  // namespace

bool OffersNewAddresses(const Skin& skin) {
  return skin.Config().HasHelpfulDialogs() &&
         !skin.GetText(kSectionTexts, kTextAddressOffer).empty();
}

std::string NewAddresses::Text(const char* key) const {
  return desk_.GetSkin().GetText(kSectionTexts, key);
}

std::string NewAddresses::PageOf(int channelId, const std::string& feedAddress) const {
  const std::string home = HomePageOf(desk_.GetStore(), channelId);
  const std::string address = EscapedAddress(desk_.GetStore().TextCodePage().ToUtf8(home));
  if (IsWebAddress(address)) return address;
  const std::string server = UrlOrigin(feedAddress);
  return IsWebAddress(server) ? server + "/" : "";
}

void NewAddresses::LookFor(int channelId) {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  if (channel == nullptr) return;
  const std::string page = PageOf(channelId, channel->xmlLink);
  if (page.empty()) {
    return desk_.ReportMessage(FaultText(desk_.GetSkin(), {FeedFaultKind::BadAddress}));
  }
  desk_.ReportMessage(WithTitle(Text(kTextAddressSearching), channel->title));
  refreshing_.CheckFeed(page, {}, [this, channelId, page](const FeedCheckAnswer& answer) {
    OnAnswer(channelId, page, answer);
  });
}

void NewAddresses::OnAnswer(int channelId, const std::string& page, const FeedCheckAnswer& answer) {
  desk_.ReportMessage({});  // that it is being looked for
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  if (channel == nullptr) return;
  const std::string found = EscapedAddress(answer.isFeed ? page : answer.announcedFeed);
  const bool isOther = !found.empty() && found != EscapedAddress(channel->xmlLink);
  isOther ? Offer(channelId, found) : TellNone(page, answer);
}

void NewAddresses::TellNone(const std::string& page, const FeedCheckAnswer& answer) {
  const bool isPage = answer.isFeed || answer.fault.kind == FeedFaultKind::WebPage;
  const std::string reason =
      isPage ? Text(kTextPageNamesNone) : FaultText(desk_.GetSkin(), answer.fault);
  const std::string more = reason + "$" + Shown(page);
  if (desk_.Ask(kTextNoNewAddress, more, MsgBoxKind::Offer) != MsgBoxAnswer::Consented) return;
  reading_.ShowWebPage(page);
}

void NewAddresses::Offer(int channelId, const std::string& address) {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  if (channel == nullptr || address.empty()) return;
  const std::string more = channel->title + "$" +
                           WithTitle(Text(kTextAddressOld), Shown(channel->xmlLink)) + "$" +
                           WithTitle(Text(kTextAddressNew), Shown(address));
  if (desk_.Ask(kTextAddressOffer, more, MsgBoxKind::YesNo) != MsgBoxAnswer::Consented) return;
  if (const char* const fault = Change(channelId, address)) {
    desk_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
  }
}

// One that cannot be stored is lost: the feed's own takes its place.
void NewAddresses::MovePeriod(const std::string& from, const std::string& to) {
  const auto period = refreshing_.Periods()[from];
  if (period.count() > 0) static_cast<void>(refreshing_.SetPeriod(to, period));
}

// Returns the text key of an error message, null on success. A refresh that runs would bring the
// state of the former address.
const char* NewAddresses::Change(int channelId, const std::string& address) {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  if (channel == nullptr) return nullptr;
  if (refreshing_.IsAnyChannelQueued({&channelId, 1})) return kTextAddressBusy;
  int id = 0, order = 0;
  if (FindChannelByXmlLink(desk_.GetStore(), address, channel->folderId, id, order)) {
    return kTextAddChannelDuplicate;
  }
  if (!SetChannelAddress(desk_.GetStore(), channelId, address)) return kTextAddressError;
  MovePeriod(channel->xmlLink, address);
  model_.SetAddress(channelId, address);
  refreshing_.QueueRefresh({*channel});
  refreshing_.StartRefresh();
  return nullptr;
}

}  // namespace feedloom
