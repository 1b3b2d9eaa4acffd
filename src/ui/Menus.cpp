#include "ui/Menus.h"

#include <QMenu>
#include <utility>

#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Skin.h"
#include "ui/CommandKeys.h"

namespace feedloom {
namespace {

const MenuItem kSeparator{};

MenuItem SubMenu(const Label& label, Menu items) {
  return {.label = &label, .items = std::move(items)};
}

Menu GroupMenu() {
  return {
      SubMenu(kLabelAdd,
              {{kCommandAddChannel, &kLabelAddChannel}, {kCommandAddGroup, &kLabelAddGroup}}),
      kSeparator,
      {kCommandDeleteGroup, &kLabelDeleteGroup},
      {kCommandRenameGroup, &kLabelRenameGroup},
      kSeparator,
      {kCommandRefreshGroup, &kLabelRefreshGroup},
      {kCommandTodayInGroup, &kLabelTodayInGroup},
      {kCommandSearchGroup, &kLabelSearchGroup},
      kSeparator,
      {kCommandMarkAllRead, &kLabelMarkAllRead},
      {kCommandMarkAllUnread, &kLabelMarkAllUnread},
  };
}

Menu ChannelMenu() {
  return {
      {kCommandAddChannel, &kLabelAddChannel},
      {kCommandDeleteChild, &kLabelDeleteChannel},
      {kCommandMoveChannel, &kLabelMoveChannel},
      {kCommandRenameChild, &kLabelRenameChannel},
      kSeparator,
      {kCommandRefreshChannel, &kLabelRefreshChannel},
      {kCommandSearchChannel, &kLabelSearchChannel},
      kSeparator,
      {kCommandMarkAllRead, &kLabelMarkAllRead},
      {kCommandMarkAllUnread, &kLabelMarkAllUnread},
      kSeparator,
      {kCommandChannelInfo, &kLabelChannelInfo},
  };
}

Menu CabinetRootMenu() {
  return {
      {kCommandAddCabinet, &kLabelAddCabinet},
      kSeparator,
      {kCommandSearchAllCabinets, &kLabelSearchAllCabinets},
      kSeparator,
      {kCommandMarkAllRead, &kLabelMarkAllRead},
      {kCommandMarkAllUnread, &kLabelMarkAllUnread},
  };
}

Menu CabinetMenu() {
  return {
      {kCommandDeleteChild, &kLabelDeleteCabinet},
      {kCommandRenameChild, &kLabelRenameCabinet},
      kSeparator,
      {kCommandSearchCabinet, &kLabelSearchCabinet},
      kSeparator,
      {kCommandMarkAllRead, &kLabelMarkAllRead},
      {kCommandMarkAllUnread, &kLabelMarkAllUnread},
  };
}

Menu WholeMenu() {
  return {
      SubMenu(kLabelAdd, {{kCommandAddChannel, &kLabelAddChannel},
                          {kCommandAddGroup, &kLabelAddGroup},
                          {kCommandAddCabinet, &kLabelAddCabinet}}),
      kSeparator,
      {kCommandToday, &kLabelToday},
      kSeparator,
      SubMenu(kLabelImportOpml, {{kCommandImportFile, &kLabelImportFile},
                                 {kCommandImportAddress, &kLabelImportAddress}}),
      {kCommandExportOpml, &kLabelExportOpml},
      kSeparator,
      {kCommandSynchronise, &kLabelSynchronise},
      kSeparator,
      {kCommandSettings, &kLabelSettings},
  };
}

Menu ListMenu() {
  return {
      {kCommandMarkRead, &kLabelMarkRead}, {kCommandMarkUnread, &kLabelMarkUnread},
      {kCommandDelete, &kLabelDelete},     {kCommandDeleteAll, &kLabelDeleteAll},
      {kCommandScrap, &kLabelScrap},
  };
}

// QMenu takes a single "&" as the mark of a mnemonic.
QString MenuText(const Skin& skin, const MenuItem& item) {
  QString text = SkinText(skin, *item.label);
  if (!item.detail.empty()) {
    text += " (" + ToQString(skin.Config().GetCodePage(), item.detail) + ")";
  }
  return text.replace("&", "&&");
}

// The key only stands there: the pane listens to it, also while no menu is open.
void ShowKey(QAction& action) {
  action.setShortcut(KeysOf(action.data().toInt()).value(0));
  action.setShortcutContext(Qt::WidgetShortcut);
  action.setShortcutVisibleInContextMenu(true);
}

void ShowTip(QMenu& menu, QAction& action, const QString& tip) {
  if (tip.isEmpty()) return;
  action.setToolTip(tip);
  menu.setToolTipsVisible(true);
}

void AddItems(QMenu& target, const Menu& menu, const Skin& skin) {
  for (const MenuItem& item : menu) {
    if (item.label == nullptr) {
      target.addSeparator();
    } else if (!item.items.empty()) {
      AddItems(*target.addMenu(MenuText(skin, item)), item.items, skin);
    } else {
      QAction* const action = target.addAction(MenuText(skin, item));
      action->setData(item.command);
      action->setEnabled(item.isEnabled);
      action->setCheckable(item.isChecked.has_value());
      action->setChecked(item.isChecked.value_or(false));
      if (item.tip != nullptr) ShowTip(target, *action, SkinText(skin, item.tip));
      ShowKey(*action);
    }
  }
}

}  // namespace

Menu PopUpMenu(PopUp popUp) {
  switch (popUp) {
    case PopUp::Group:
      return GroupMenu();
    case PopUp::Channel:
      return ChannelMenu();
    case PopUp::CabinetRoot:
      return CabinetRootMenu();
    case PopUp::Cabinet:
      return CabinetMenu();
    case PopUp::Whole:
      return WholeMenu();
    case PopUp::List:
      return ListMenu();
  }
  return {};
}

void Disable(Menu& menu, int command, const char* reason) {
  for (MenuItem& item : menu) {
    if (item.label != nullptr && item.command == command) {
      item.isEnabled = false;
      item.tip = reason;
    }
    Disable(item.items, command, reason);
  }
}

void Remove(Menu& menu, int command) {
  std::erase_if(
      menu, [&](const MenuItem& item) { return item.label != nullptr && item.command == command; });
}

QMenu& ShowMenu(const Menu& menu, const Skin& skin, const QPoint& place, QWidget* parent,
                std::function<void(int command)> onCommand) {
  auto* const shown = new QMenu(parent);
  shown->setAttribute(Qt::WA_DeleteOnClose);
  AddItems(*shown, menu, skin);
  // Queued until the menu has closed: a command may open a dialog or destroy the parent.
  QObject::connect(shown, &QMenu::triggered, parent,
                   [parent, run = std::move(onCommand)](const QAction* action) {
                     const int command = action->data().toInt();
                     QMetaObject::invokeMethod(
                         parent, [run, command] { run(command); }, Qt::QueuedConnection);
                   });
  shown->popup(place);
  return *shown;
}

}  // namespace feedloom
