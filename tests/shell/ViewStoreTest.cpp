#include "files/RegistryKeys.h"
#include "kit/TempFolder.h"
#include "shell/ViewStore.h"

namespace feedloom {

TEST(ViewStore, KeepsAllAndIgnoresBadValuesPieceByPiece) {
  const TempFolder folder;
  const Registry registry{folder.File("registry.reg")};
  EXPECT_EQ(LoadView(registry), ViewMemory());
  const ViewMemory view{
      .panes = {300, 240, 420},
      .tree = {{{RowKind::Folder, 7}, {RowKind::CabinetRoot, 0}}, RowKey{RowKind::Cabinet, 2}},
      .list = {{30, 400, 0, 90}, 1, 2, true, 41, 40},
      .page = {-2, 41},
      .isUnreadOnly = true};
  ASSERT_TRUE(SaveView(registry, view));
  EXPECT_EQ(LoadView(registry), view);
  for (const auto& [name, text] : {std::pair("Panes", "-5,240"),
                                   {"Columns", "30,99999,100"},
                                   {"Sorting", "4,0"},
                                   {"SearchScope", "local"},
                                   {"Zoom", ""},
                                   {"Closed", "0,7,9,1"},
                                   {"Selected", "2,12345678901234567890"},
                                   {"Posts", "41,40,41x"},
                                   {"UnreadOnly", "2"}}) {
    ASSERT_TRUE(registry.WriteString(kViewKey, name, text));
  }
  EXPECT_EQ(LoadView(registry), (ViewMemory{.panes = {.listHeight = 240},
                                            .tree = {{{RowKind::Folder, 7}}},
                                            .list = {{30, 0, 100}}}));
}

}  // namespace feedloom
