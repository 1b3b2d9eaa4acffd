#include "ui/browser/FeedMenu.h"

#include <QMenu>
#include <utility>

#include "ui/SharedState.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

// The feed's title, or its address when the title is empty. A single "&" would mark a mnemonic.
QString MenuText(const DiscoveredFeed& feed, CodePage codePage) {
  QString text = ToLine(codePage, feed.title).trimmed();
  if (text.isEmpty()) text = ToLine(codePage, feed.address);
  return text.replace("&", "&&");
}

}  // namespace

void ShowFeedMenu(const std::vector<DiscoveredFeed>& feeds, CodePage codePage, bool canAdd,
                  const QRect& place, QWidget* parent,
                  std::function<void(const std::string& address)> onChosen,
                  std::function<void()> onClosed) {
  if (feeds.empty()) return;
  auto* const menu = new QMenu(parent);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const DiscoveredFeed& feed : feeds) {
    QAction* const item = menu->addAction(MenuText(feed, codePage));
    item->setEnabled(canAdd);
    item->setData(menu->actions().size());  // counted from 1
  }
  // Queued until the menu has closed, because onChosen opens a dialog.
  QObject::connect(menu, &QMenu::triggered, parent,
                   [parent, feeds, run = std::move(onChosen)](const QAction* item) {
                     const auto number = static_cast<std::size_t>(item->data().toInt());
                     QMetaObject::invokeMethod(
                         parent, [run, address = feeds[number - 1].address] { run(address); },
                         Qt::QueuedConnection);
                   });
  QObject::connect(menu, &QMenu::aboutToHide, parent, std::move(onClosed));
  menu->popup(place.bottomLeft());
}

}  // namespace feedloom
