#include "ui/browser/PageButtons.h"

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "ui/Frame.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

// An address without a scheme gets the one that the host's texts specify.
void AddFeed(Frame& frame, const std::string& address) {
  const std::string scheme = frame.GetSkin().GetText(kSectionTexts, kTextUrlScheme);
  const bool hasScheme = address.find("://") != std::string::npos;
  frame.AddChannel(hasScheme ? address : scheme + "://" + address);
}

void SavePost(Frame& frame, const std::string& title, const std::string& link,
              const std::string& description, const std::string& published) {
  // A copy, because the frame and its actions may be deleted while the dialog is open.
  const auto chooseCabinet = frame.GetActions().chooseCabinet;
  const auto cabinet = chooseCabinet ? chooseCabinet() : std::nullopt;
  if (!cabinet) return;  // the frame may have been deleted
  frame.PostIsSaved(*cabinet);
  frame.ReportMessage(frame.GetSkin().GetText(kSectionTexts, kTextScrapFinished));
  Store& store = frame.GetStore();
  if (InsertScrapPost(store, *cabinet, title, link, published, description) < 0) {
    frame.RecountUnread(true);
  }
}

}  // namespace

void RunPageAction(Frame& frame, const PageAction& action, const QStringList& texts) {
  const CodePage codePage = frame.GetStore().TextCodePage();
  const auto text = [&](qsizetype index) { return FromQString(codePage, texts.value(index)); };
  switch (action.kind) {
    case PageAction::AddFeed:
      return AddFeed(frame, text(0));
    case PageAction::SavePost:
      return SavePost(frame, text(0), text(1), text(2), text(3));
  }
}

}  // namespace feedloom
