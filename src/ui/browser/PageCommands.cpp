#include "ui/browser/PageCommands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QPrinter>

#include "skin/Labels.h"
#include "ui/Frame.h"
#include "ui/browser/FindBar.h"
#include "ui/browser/StatusTexts.h"

namespace feedloom {

// The link under the pointer goes before the page.
QUrl PageCommands::AddressFor(const PageSpot& spot) const {
  return spot.link.isEmpty() ? view_.OutsideAddress() : spot.link;
}

Menu PageCommands::TheMenu(const PageSpot& spot) const {
  const QUrl address = AddressFor(spot);
  const MenuItem separator;
  Menu menu = {{kCommandOpenOutside, &kLabelOpenOutside, IsWebAddress(address)},
               {kCommandCopyAddress, &kLabelCopyAddress, !address.isEmpty()},
               {kCommandCopyText, &kLabelCopyText, !spot.selectedText.isEmpty()},
               separator,
               {kCommandFindInPage, &kLabelFindInPage},
               {kCommandPrint, &kLabelPrint, frame_.GetActions().choosePrinter != nullptr},
               separator,
               {kCommandZoomIn, &kLabelZoomIn},
               {kCommandZoomOut, &kLabelZoomOut},
               {kCommandZoomNormal, &kLabelZoomNormal}};
  if (view_.IsDownloading()) {
    menu.push_back(separator);
    menu.push_back({kCommandStopDownloads, &kLabelStopDownloads});
  }
  return menu;
}

void PageCommands::Run(int command, const PageSpot& spot) {
  switch (command) {
    case kCommandOpenOutside:
      return OpenOutside(AddressFor(spot));
    case kCommandCopyAddress:
      return QGuiApplication::clipboard()->setText(AddressFor(spot).toString(QUrl::FullyEncoded));
    case kCommandCopyText:
      return QGuiApplication::clipboard()->setText(spot.selectedText);
    case kCommandFindInPage:
      return findBar_.Open();
    case kCommandPrint:
      return Print();
    case kCommandZoomIn:
      return view_.Zoom(1);
    case kCommandZoomOut:
      return view_.Zoom(-1);
    case kCommandZoomNormal:
      return view_.Zoom(0);
    case kCommandStopDownloads:
      return view_.StopDownloads();
    default:
      return;
  }
}

void PageCommands::OpenOutside(const QUrl& address) {
  const auto& open = frame_.GetActions().openOutside;
  if (open && open(address)) return;
  frame_.ReportMessage(
      StatusText(frame_.GetSkin(), BrowserReport::NoOutsideProgram, address.toDisplayString()));
}

void PageCommands::Print() {
  const auto choosePrinter = frame_.GetActions().choosePrinter;
  const QPointer view(&view_);
  auto printer = std::make_unique<QPrinter>();
  if (choosePrinter && choosePrinter(*printer) && view) view->Print(std::move(printer));
}

}  // namespace feedloom
