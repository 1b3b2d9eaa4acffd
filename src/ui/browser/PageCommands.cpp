#include "ui/browser/PageCommands.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QPointer>
#include <QPrinter>
#include <QSaveFile>

#include "skin/Labels.h"
#include "ui/Desk.h"
#include "ui/browser/BrowserServices.h"
#include "ui/browser/FindBar.h"
#include "ui/browser/StatusTexts.h"

namespace feedloom {

// The link under the pointer, or else the page.
QUrl PageCommands::AddressFor(const MenuTarget& target) const {
  return target.link.isEmpty() ? view_.OutsideAddress() : target.link;
}

Menu PageCommands::ContextMenu(const MenuTarget& target) const {
  const QUrl address = AddressFor(target);
  const MenuItem separator;
  Menu menu = {{kCommandOpenOutside, &kLabelOpenOutside, IsWebAddress(address)},
               {kCommandCopyAddress, &kLabelCopyAddress, !address.isEmpty()},
               {kCommandCopyText, &kLabelCopyText, !target.selectedText.isEmpty()},
               separator,
               {kCommandFindInPage, &kLabelFindInPage},
               {kCommandPrint, &kLabelPrint},
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

void PageCommands::Run(int command, const MenuTarget& target) {
  switch (command) {
    case kCommandOpenOutside:
      return OpenExternally(AddressFor(target));
    case kCommandCopyAddress:
      return QGuiApplication::clipboard()->setText(AddressFor(target).toString(QUrl::FullyEncoded));
    case kCommandCopyText:
      return QGuiApplication::clipboard()->setText(target.selectedText);
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

void PageCommands::OpenExternally(const QUrl& address) {
  if (services_.openExternally(ForOtherPrograms(address))) return;
  desk_.ReportMessage(StatusText(desk_.GetSkin(), BrowserReport::NoOutsideProgram,
                                 address.toString(QUrl::FullyEncoded)));
}

// The system knows its player by a playlist: for the address alone it would start its browser.
void PageCommands::OpenInPlayer(const QUrl& media) {
  const std::string folder = desk_.GetSkin().Config().GetWorkDir();
  QSaveFile list(QFile::decodeName((folder + "/player.m3u").c_str()));
  const bool isWritten = !folder.empty() && list.open(QIODevice::WriteOnly) &&
                         list.write(media.toEncoded(QUrl::RemoveUserInfo) + '\n') > 0 &&
                         list.commit();
  if (isWritten && services_.openExternally(QUrl::fromLocalFile(list.fileName()))) return;
  OpenExternally(media);
}

void PageCommands::Print() {
  const auto choosePrinter = services_.choosePrinter;  // the object may be deleted meanwhile
  const QPointer view(&view_);
  auto printer = std::make_unique<QPrinter>();
  if (choosePrinter(*printer) && view) view->Print(std::move(printer));
}

}  // namespace feedloom
