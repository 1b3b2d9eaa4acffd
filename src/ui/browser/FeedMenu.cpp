#include "ui/browser/FeedMenu.h"

#include <QMenu>
#include <utility>

#include "look/QtText.h"
#include "ui/SharedState.h"

namespace feedloom {
namespace {

constexpr qsizetype kLongestTitle = 80;  // characters; a menu is as wide as its longest entry

// The feed's title, or its address when the title is empty. A single "&" would mark a mnemonic.
QString MenuText(const DiscoveredFeed& feed, CodePage codePage) {
  QString text = ToLine(codePage, feed.title).trimmed();
  if (text.isEmpty()) text = ToLine(codePage, feed.address);
  if (const auto codes = text.toUcs4(); codes.size() > kLongestTitle) {
    text = QString::fromUcs4(reinterpret_cast<const char32_t*>(codes.data()), kLongestTitle - 1) +
           QChar(0x2026);
  }
  return text.replace("&", "&&");
}

}  // namespace

void ShowFeedMenu(const FeedGroups& groups, CodePage codePage, const QRect& place, QWidget* parent,
                  std::function<void(const std::string& address)> onChosen,
                  std::function<void()> onClosed) {
  std::vector<std::string> addresses;
  auto* const menu = new QMenu(parent);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const auto& feeds : groups) {
    menu->addSeparator();  // not shown before the first entry, nor behind the last one
    for (const DiscoveredFeed& feed : feeds) {
      QAction* const item = menu->addAction(MenuText(feed, codePage));
      item->setData(static_cast<int>(addresses.size()));
      addresses.push_back(feed.address);
    }
  }
  if (addresses.empty()) return delete menu;
  // Queued until the menu has closed, because onChosen opens a dialog.
  QObject::connect(menu, &QMenu::triggered, parent,
                   [parent, addresses, run = std::move(onChosen)](const QAction* item) {
                     const auto number = static_cast<std::size_t>(item->data().toInt());
                     QMetaObject::invokeMethod(
                         parent, [run, address = addresses[number]] { run(address); },
                         Qt::QueuedConnection);
                   });
  QObject::connect(menu, &QMenu::aboutToHide, parent, std::move(onClosed));
  menu->popup(place.bottomLeft());
}

}  // namespace feedloom
