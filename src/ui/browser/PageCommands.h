// The commands of the browser's menu and keys.
#pragma once

#include "ui/Menus.h"
#include "ui/browser/CRSS_HtmlView.h"

namespace feedloom {

class FindBar;
class Frame;

class PageCommands {
 public:
  // All three outlive the object.
  PageCommands(Frame& frame, CRSS_HtmlView& view, FindBar& findBar)
      : frame_(frame), view_(view), findBar_(findBar) {}

  Menu TheMenu(const PageSpot& spot) const;
  // `spot` is what the menu was opened for; a key has none, and means the page. The object may be
  // gone when a command that opens a dialog returns.
  void Run(int command, const PageSpot& spot = {});

  // Hands the address to a program of the system, or says that there is none.
  void OpenOutside(const QUrl& address);

 private:
  QUrl AddressFor(const PageSpot& spot) const;
  void Print();

  Frame& frame_;
  CRSS_HtmlView& view_;
  FindBar& findBar_;
};

}  // namespace feedloom
