#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>
#include <QWidget>

#include "kit/ShippedSkin.h"
#include "ui/Menus.h"

namespace feedloom {
namespace {

// One line an item, sub-menus in brackets, "-" for a separator.
std::string Text(const Menu& menu) {
  std::string text;
  for (const MenuItem& item : menu) {
    if (!text.empty()) text += ", ";
    if (item.label == nullptr) {
      text += "-";
    } else {
      text += item.label->builtIn;
      if (!item.items.empty()) text += " [" + Text(item.items) + "]";
    }
  }
  return text;
}

TEST(Menus, HoldTheirItemsInOrder) {
  const struct {
    PopUp popUp;
    const char* items;
  } cases[] = {
      {PopUp::Group,
       "추가 [채널 추가, 그룹 추가], -, 그룹 삭제, 그룹 이름 변경, -, 현재 그룹의 새글 받기, "
       "현재 그룹의 오늘의 새글 보기, 현재 그룹에서 검색, -, 모두 읽은 상태로 표시, "
       "모두 읽지 않은 상태로 표시"},
      {PopUp::Channel,
       "채널 추가, 채널 삭제, 채널 이동, 채널 이름 변경, -, 현재 채널의 새글 받기, "
       "현재 채널에서 검색, -, 모두 읽은 상태로 표시, 모두 읽지 않은 상태로 표시, -, "
       "채널 정보 보기"},
      {PopUp::CabinetRoot,
       "보관함 추가, -, 보관함 기사 전체에서 검색, -, 모두 읽은 상태로 표시, "
       "모두 읽지 않은 상태로 표시"},
      {PopUp::Cabinet,
       "보관함 삭제, 보관함 이름 변경, -, 현재 보관함에서 검색, -, 모두 읽은 상태로 표시, "
       "모두 읽지 않은 상태로 표시"},
      {PopUp::Whole,
       "추가 [채널 추가, 그룹 추가, 보관함 추가], -, 오늘의 새글 보기, -, "
       "OPML 가져오기 [내 컴퓨터, URL], OPML 내보내기, -, Corvane 채널과 동기화, -, 환경 설정"},
      {PopUp::List, "읽은 상태로 표시, 읽지 않은 상태로 표시, 삭제, 전체 삭제, 스크랩 하기"},
  };
  for (const auto& [popUp, items] : cases) EXPECT_EQ(Text(PopUpMenu(popUp)), items);
}

TEST(Menus, CarryTheNumbersThatHostsKnow) {
  const Menu group = PopUpMenu(PopUp::Group);
  EXPECT_EQ(group[0].items[0].command, 0x8006);
  EXPECT_EQ(group[2].command, 0x8009);
  EXPECT_EQ(group[5].command, 0x801d);
  EXPECT_EQ(group[6].command, 0x800c);
  EXPECT_EQ(PopUpMenu(PopUp::Channel)[1].command, 0x8011);
  EXPECT_EQ(PopUpMenu(PopUp::Cabinet)[0].command, 0x8011);
  EXPECT_EQ(PopUpMenu(PopUp::Whole)[9].command, 0x802d);
  EXPECT_EQ(PopUpMenu(PopUp::List)[4].command, 0x8036);
}

TEST(Menus, AreShownInTheHostsLanguageAndHandOverTheChosenCommand) {
  const ShippedSkin english("ENG");
  QWidget parent;
  Menu menu = PopUpMenu(PopUp::Whole);
  Disable(menu, kCommandImportFile);
  Remove(menu, kCommandSettings);
  int chosen = 0;
  ShowMenu(menu, english.Get(), {}, &parent, [&](int command) { chosen = command; });
  auto* const shown = parent.findChild<QMenu*>({}, Qt::FindDirectChildrenOnly);
  ASSERT_NE(shown, nullptr);
  EXPECT_TRUE(shown->isVisible());
  const QAction* const import = shown->actions()[4];
  EXPECT_EQ(import->text(), "Import OPML");
  EXPECT_FALSE(import->menu()->actions()[0]->isEnabled());
  EXPECT_TRUE(import->menu()->actions()[1]->isEnabled());
  EXPECT_EQ(shown->actions().last()->text(), "");  // the separator before the removed item
  import->menu()->actions()[1]->trigger();
  EXPECT_EQ(chosen, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(chosen, kCommandImportAddress);
}

}  // namespace
}  // namespace feedloom
