
#include <QtWidgets>

#include "kit/ShippedSkin.h"
#include "ui/Menus.h"

namespace feedloom {

// Each item's text, key and command, from 0x8000 on; sub-menus in brackets, ";" for a separator.
static std::string Text(const QMenu& menu) {
  QStringList items;
  for (const QAction* item : menu.actions()) {
    const auto number = QString::number(item->data().toInt() - 0x8000, 16).toStdString();
    const auto rest = item->menu() ? "[" + Text(*item->menu()) + "]" : number;
    const QString key = item->shortcut().isEmpty() ? "" : " " + item->shortcut().toString();
    items << item->text() + key + " " + rest.c_str();
  }
  const QString marks = "Mark all as read e, Mark all as unread f";
  return items.join(", ").replace(",  -8000, ", "; ").replace(marks, "(marks)").toStdString();
}

TEST(Menus, ShowTheirItemsInOrderAndHandOverTheChosenCommand) {
  const char* const menus[] = {
      "Add [Add channel… 6, Add folder… 7]; Delete folder Del 9, Rename folder… a; Refresh folder "
      "F5 1d, Today's new posts in this folder c, Search in this folder… d; (marks)",
      "Add channel… 6, Delete channel Del 11, Move channel… 12, Rename channel… 13; Refresh "
      "channel "
      "F5 14, Search in this channel… 15; (marks); Channel information… 16",
      "Add cabinet… 2e; Search in all cabinets… 18; (marks)",
      "Delete cabinet Del 11, Rename cabinet… 13; Search in this cabinet… 1a; (marks)",
      "Add [Add channel… 6, Add folder… 7, Add cabinet… 2e]; Today's new posts 35; Import OPML "
      "[From a file… 27, From an address… 28], Export OPML… 2b; Synchronise with the handset… 2a; "
      "Settings… 2d",
      "Mark as read M 2f, Mark as unread M 30, Delete Del 31, Delete all 32, Clip to a cabinet… S "
      "36"};
  const ShippedSkin english("ENG");
  for (int i = 0; i < 6; ++i) {
    QWidget parent;
    const Menu menu = PopUpMenu(static_cast<PopUp>(i));
    int chosen = 0;
    ShowMenu(menu, english.Get(), {}, &parent, [&](int command) { chosen = command; });
    const auto& shown = *parent.findChild<QMenu*>({}, Qt::FindDirectChildrenOnly);
    EXPECT_EQ(Text(shown), menus[i]);
    shown.actions().last()->trigger();
    EXPECT_EQ(chosen, 0);
    qApp->processEvents();
    EXPECT_EQ(chosen, menu.back().command);
  }
}

}  // namespace feedloom
