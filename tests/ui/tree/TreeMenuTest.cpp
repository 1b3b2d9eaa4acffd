#include <gtest/gtest.h>

#include <set>

#include "ui/Actions.h"
#include "ui/tree/TreeMenu.h"

namespace feedloom {
namespace {

using Commands = std::set<int>;

void AddGrey(const Menu& menu, Commands& grey) {
  for (const MenuItem& item : menu) {
    if (item.label != nullptr && !item.isEnabled) grey.insert(item.command);
    AddGrey(item.items, grey);
  }
}

Commands GreyIn(const Menu& menu) {
  Commands grey;
  AddGrey(menu, grey);
  return grey;
}

TEST(TreeMenu, GreysWhatTheRowDoesNotAllow) {
  const Commands none;
  const Commands marks{kCommandMarkAllRead, kCommandMarkAllUnread};
  const struct {
    RowFacts row;
    const Label* first;
    Commands grey;
  } cases[] = {
      {{.kind = RowKind::Folder}, &kLabelAdd, none},
      {{.kind = RowKind::Folder, .hasPosts = false}, &kLabelAdd, marks},
      {{.kind = RowKind::Folder, .isProtected = true},
       &kLabelAdd,
       {kCommandDeleteGroup, kCommandRenameGroup}},
      {{.kind = RowKind::Channel}, &kLabelAddChannel, none},
      {{.kind = RowKind::Channel, .hasPosts = false}, &kLabelAddChannel, marks},
      {{.kind = RowKind::Channel, .hasOtherFolder = false},
       &kLabelAddChannel,
       {kCommandMoveChannel}},
      {{.kind = RowKind::CabinetRoot, .hasPosts = false}, &kLabelAddCabinet, marks},
      {{.kind = RowKind::Cabinet}, &kLabelDeleteCabinet, none},
      {{.kind = RowKind::Cabinet, .hasPosts = false}, &kLabelDeleteCabinet, marks},
  };
  for (const auto& [row, first, grey] : cases) {
    const Menu menu = RowMenu(row);
    EXPECT_EQ(menu.front().label, first);
    EXPECT_EQ(GreyIn(menu), grey) << first->builtIn;
  }
}

TEST(TreeMenu, GreysCommandsWhoseActionIsMissing) {
  Actions actions;
  Menu menu = PopUpMenu(PopUp::Whole);
  DisableMissing(menu, actions);
  EXPECT_EQ(GreyIn(menu), (Commands{kCommandAddChannel, kCommandAddGroup, kCommandAddCabinet,
                                    kCommandImportFile, kCommandImportAddress, kCommandExportOpml,
                                    kCommandSynchronise, kCommandSettings}));
  actions.addGroup = [] {};
  menu = PopUpMenu(PopUp::Group);
  DisableMissing(menu, actions);
  EXPECT_EQ(GreyIn(menu), (Commands{kCommandAddChannel, kCommandRenameGroup, kCommandSearchGroup}));
}

}  // namespace
}  // namespace feedloom
