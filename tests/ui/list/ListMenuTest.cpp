#include <gtest/gtest.h>

#include <string>

#include "ui/list/ListMenu.h"

namespace feedloom {
namespace {

constexpr auto kNormal = ListMode::Selection;
constexpr auto kWeb = ListMode::WebDirectory;
constexpr auto kToday = ListMode::Today;

// The items' initials, grey ones in brackets: Read, Unread, Delete, All, Scrap.
std::string ItemsOf(const std::optional<Menu>& menu) {
  if (!menu) return "no menu";
  std::string items;
  for (const MenuItem& item : *menu) {
    const char initial = item.command == kCommandMarkRead     ? 'R'
                         : item.command == kCommandMarkUnread ? 'U'
                         : item.command == kCommandDelete     ? 'D'
                         : item.command == kCommandDeleteAll  ? 'A'
                         : item.command == kCommandScrap      ? 'S'
                                                              : '?';
    items += item.isEnabled ? std::string(1, initial) : std::string{'(', initial, ')'};
  }
  return items;
}

TEST(ListMenuTest, OffersWhatCanBeDoneWithTheSelectedRows) {
  const struct {
    ListFacts list;
    const char* items;
  } cases[] = {
      {{.mode = kNormal, .rows = 0}, "no menu"},
      {{.mode = kWeb, .rows = 0}, "no menu"},
      {{.mode = kNormal, .rows = 3, .selected = 0}, "A"},
      {{.mode = kNormal, .rows = 3, .selected = 1, .isRead = false}, "RDAS"},
      {{.mode = kNormal, .rows = 3, .selected = 1, .isRead = true}, "UDAS"},
      {{.mode = kNormal, .rows = 3, .selected = 2, .isRead = true}, "RUDAS"},
      {{.mode = kToday, .rows = 3, .selected = 0}, "(A)"},
      {{.mode = kToday, .rows = 3, .selected = 1, .isRead = true}, "UD(A)S"},
      {{.mode = kToday, .rows = 3, .selected = 3}, "RUD(A)S"},
      {{.mode = kWeb, .rows = 3, .selected = 0}, "S"},
      {{.mode = kWeb, .rows = 3, .selected = 1}, "S"},
      {{.mode = kWeb, .rows = 3, .selected = 2}, "S"},
      {{.mode = static_cast<ListMode>(3), .rows = 3, .selected = 1}, "no menu"},
  };
  for (auto [list, items] : cases) {
    list.canScrap = true;
    EXPECT_EQ(ItemsOf(ListMenu(list)), items)
        << "mode " << static_cast<int>(list.mode) << ", " << list.selected << " selected";
  }
}

TEST(ListMenuTest, GreysScrappingWithoutSomethingToChooseACabinet) {
  EXPECT_EQ(ItemsOf(ListMenu({.mode = kNormal, .rows = 2, .selected = 2})), "RUDA(S)");
  EXPECT_EQ(ItemsOf(ListMenu({.mode = kWeb, .rows = 2, .selected = 2})), "(S)");
}

}  // namespace
}  // namespace feedloom
