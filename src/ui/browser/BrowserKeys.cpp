// What keys ask of the browser pane.
#include <utility>

#include "look/QtText.h"
#include "ui/CommandKeys.h"
#include "ui/Desk.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"
#include "ui/browser/PageCommands.h"
#include "ui/browser/StatusTexts.h"

namespace feedloom {

void CRSS_RightBottomContainer::SetUpKeys() {
  OnKeysOf(kCommandFindInPage, *this, [this] { commands_->Run(kCommandFindInPage); });
  OnKeysOf(kCommandStopLoad, *view_, [this] {
    if (view_->IsLoading()) view_->Stop();  // the key belongs to the page: downloads continue
  });
}

void CRSS_RightBottomContainer::RunCommand(int command) {
  switch (command) {
    case kCommandGoBack:
      return view_->GoBack();
    case kCommandGoForward:
      return view_->GoForward();
    case kCommandFocusAddress:
      return toolbar_->FocusAddress();
    case kCommandOpenPost:
      return OpenPost();
    default:
      return commands_->Run(command);
  }
}

void CRSS_RightBottomContainer::OpenPost() {
  if (!shownPost_) return TellText(desk_, kTextNothingSelected);
  if (shownPost_->post.link.empty()) return TellText(desk_, kTextNoPostLink);
  const std::string& link = shownPost_->post.link;
  const QUrl address(ToQString(desk_.GetStore().TextCodePage(), link));
  const bool isMail = address.scheme() == QLatin1String("mailto");
  if (IsWebAddress(address) || isMail) return commands_->OpenExternally(address);
  desk_.ReportMessage(
      StatusText(desk_.GetSkin(), BrowserReport::LinkRefused, address.toDisplayString()));
}

void CRSS_RightBottomContainer::ScrollScreen(bool isOn, std::function<void(bool)> onScrolled) {
  view_->ScrollScreen(isOn, std::move(onScrolled));
}

}  // namespace feedloom
