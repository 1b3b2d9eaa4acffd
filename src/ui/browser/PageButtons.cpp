#include "ui/browser/PageButtons.h"

#include "look/QtText.h"
#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/Subscribing.h"
#include "ui/browser/BrowserServices.h"

namespace feedloom {
namespace {

// An address without a scheme gets the one that the host's texts specify.
void AddFeed(Desk& desk, Subscribing& subscribing, const std::string& address) {
  const std::string scheme = desk.GetSkin().GetText(kSectionTexts, kTextUrlScheme);
  const bool hasScheme = address.find("://") != std::string::npos;
  subscribing.AddChannel(hasScheme ? address : scheme + "://" + address);
}

void SavePost(Desk& desk, Reading& reading, const BrowserServices& services,
              const std::string& title, const std::string& link, const std::string& description,
              const std::string& published) {
  // A copy, because the pane and its services may be deleted while the dialog is open.
  const auto chooseCabinet = services.chooseCabinet;
  const auto cabinet = chooseCabinet();
  if (!cabinet) return;  // the frame may have been deleted
  reading.UnreadPostWasSaved(*cabinet);
  desk.ReportMessage(desk.GetSkin().GetText(kSectionTexts, kTextScrapFinished));
  Store& store = desk.GetStore();
  if (InsertScrapPost(store, *cabinet, title, link, published, description) < 0) {
    reading.RecountUnread(true);
  }
}

}  // namespace

void RunPageAction(Desk& desk, Subscribing& subscribing, Reading& reading,
                   const BrowserServices& services, const PageAction& action,
                   const QStringList& texts) {
  const CodePage codePage = desk.GetStore().TextCodePage();
  const auto text = [&](qsizetype index) { return FromQString(codePage, texts.value(index)); };
  switch (action.kind) {
    case PageAction::AddFeed:
      return AddFeed(desk, subscribing, text(0));
    case PageAction::SavePost:
      return SavePost(desk, reading, services, text(0), text(1), text(2), text(3));
  }
}

}  // namespace feedloom
