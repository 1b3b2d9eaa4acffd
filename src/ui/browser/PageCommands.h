// The commands of the browser's context menu and of its keys. Interface thread.
#pragma once

#include "ui/Menus.h"
#include "ui/browser/CRSS_HtmlView.h"

namespace feedloom {

class Desk;
class FindBar;
struct BrowserServices;

class PageCommands {
 public:
  // The arguments outlive the object.
  PageCommands(Desk& desk, const BrowserServices& services, CRSS_HtmlView& view, FindBar& findBar)
      : desk_(desk), services_(services), view_(view), findBar_(findBar) {}

  Menu ContextMenu(const MenuTarget& target) const;
  // Runs a command of the menu that was opened on `target`; a key passes none and means the page.
  // The object may have been deleted when a command that opens a dialog returns.
  void Run(int command, const MenuTarget& target = {});

  // Opens the address in another program of the system; reports a failure in the status text.
  void OpenExternally(const QUrl& address);
  // Plays the media file at the web address `media` in the system's player.
  void OpenInPlayer(const QUrl& media);

 private:
  QUrl AddressFor(const MenuTarget& target) const;
  void Print();

  Desk& desk_;
  const BrowserServices& services_;
  CRSS_HtmlView& view_;
  FindBar& findBar_;
};

}  // namespace feedloom
