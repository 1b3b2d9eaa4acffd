#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMenu>
#include <QWidget>

#include "kit/ShippedSkin.h"
#include "ui/Menus.h"

namespace feedloom {
namespace {

// Label, and the number that hosts know; sub-menus in brackets, "-" for a separator.
std::string Text(const Menu& menu) {
  std::string text;
  for (const MenuItem& item : menu) {
    if (!text.empty()) text += ", ";
    text += item.label ? item.label->builtIn : "-";
    if (item.command) text += QString(" %1").arg(item.command, 0, 16).toStdString();
    if (!item.items.empty()) text += " [" + Text(item.items) + "]";
  }
  return text;
}

TEST(Menus, HoldTheirItemsInOrder) {
  const std::string mark = "-, 모두 읽은 상태로 표시 800e, 모두 읽지 않은 상태로 표시 800f";
  EXPECT_EQ(
      Text(PopUpMenu(PopUp::Group)),
      "추가 [채널 추가 8006, 그룹 추가 8007], -, 그룹 삭제 8009, 그룹 이름 변경 800a, -, "
      "현재 그룹의 새글 받기 801d, 현재 그룹의 오늘의 새글 보기 800c, 현재 그룹에서 검색 800d, " +
          mark);
  EXPECT_EQ(Text(PopUpMenu(PopUp::Channel)),
            "채널 추가 8006, 채널 삭제 8011, 채널 이동 8012, 채널 이름 변경 8013, -, "
            "현재 채널의 새글 받기 8014, 현재 채널에서 검색 8015, " +
                mark + ", -, 채널 정보 보기 8016");
  EXPECT_EQ(Text(PopUpMenu(PopUp::CabinetRoot)),
            "보관함 추가 802e, -, 보관함 기사 전체에서 검색 8018, " + mark);
  EXPECT_EQ(Text(PopUpMenu(PopUp::Cabinet)),
            "보관함 삭제 8011, 보관함 이름 변경 8013, -, 현재 보관함에서 검색 801a, " + mark);
  EXPECT_EQ(Text(PopUpMenu(PopUp::Whole)),
            "추가 [채널 추가 8006, 그룹 추가 8007, 보관함 추가 802e], -, 오늘의 새글 보기 8035, -, "
            "OPML 가져오기 [내 컴퓨터 8027, URL 8028], OPML 내보내기 802b, -, "
            "Corvane 채널과 동기화 802a, -, 환경 설정 802d");
  EXPECT_EQ(Text(PopUpMenu(PopUp::List)),
            "읽은 상태로 표시 802f, 읽지 않은 상태로 표시 8030, 삭제 8031, 전체 삭제 8032, "
            "스크랩 하기 8036");
}

TEST(Menus, AreShownInTheHostsLanguageAndHandOverTheChosenCommand) {
  const ShippedSkin english("ENG");
  QWidget parent;
  Menu menu = PopUpMenu(PopUp::Whole);
  Disable(menu, kCommandImportFile);
  Remove(menu, kCommandSettings);
  int chosen = 0;
  ShowMenu(menu, english.Get(), {}, &parent, [&](int command) { chosen = command; });
  const auto* const shown = parent.findChild<QMenu*>({}, Qt::FindDirectChildrenOnly);
  EXPECT_TRUE(shown->isVisible() && shown->testAttribute(Qt::WA_DeleteOnClose));
  EXPECT_TRUE(shown->actions().last()->isSeparator());  // that stood before the removed item
  const QAction* const import = shown->actions()[4];
  EXPECT_EQ(import->text(), "Import OPML");
  EXPECT_FALSE(import->menu()->actions()[0]->isEnabled());
  EXPECT_TRUE(import->menu()->actions()[1]->isEnabled());
  import->menu()->actions()[1]->trigger();
  EXPECT_EQ(chosen, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(chosen, kCommandImportAddress);
}

}  // namespace
}  // namespace feedloom
