// The dialogs about lists of subscriptions: the handset's, and what an import asks and leaves out.

#include "ui/dialogs/DialogFixture.h"

namespace feedloom {

struct ListDialogs : DialogFixture {};

TEST_F(ListDialogs, ListsGoToTheHandsetAndBackAndTheHostHearsOfIt) {
  const std::string look = "핸드셋과 동기화; >연결된 핸드셋: ";
  const char* const none = "핸드셋과 동기화; 연결된 핸드셋: 연결된 핸드셋이 없습니다.; >닫기";
  WhenShown([&] { EXPECT_EQ(Look(*dialog), none); });
  ShowSync(frame, frame, parent.get());
  frame.skin.SetHostValue(kValueModelName, "H3");
  WhenShown([&] {
    const auto press = [&](const std::string& text, const std::string& buttons) {
      EXPECT_EQ(Look(*dialog), look + "H3 (" + text + "); " + text + buttons + "; 닫기");
      Press(Qt::Key_Return);
    };
    press("채널 목록을 핸드셋에 보내고,\r\n핸드셋이 남긴 목록의 채널을 추가합니다.", "; 동기화");
    press("동기화하는 중입니다.", "");  // Enter does nothing now
    frame.endSynchronisation({.sent = {}, .received = {}});
    EXPECT_EQ(frame.messages, Keys()) << "what failed was reported";
    press("핸드셋으로 보낼 목록을 저장하지 못했습니다.", "; 동기화");
    frame.endSynchronisation({.sent = 12, .received = {}});
    press("채널 12개를 핸드셋에 보냈지만, 핸드셋이 남긴 목록은 가져오지 못했습니다.", "; 동기화");
    Click("닫기");
    EXPECT_FALSE(dialog->isVisible());
  });
  ShowSync(frame, frame, parent.get());
  frame.endSynchronisation({.sent = 12, .received = ImportSums{.added = 2}});
  EXPECT_EQ(frame.messages.back(), Korean("핸드셋과 동기화했습니다: 보낸 채널 12, 받은 채널 2"));
}

TEST_F(ListDialogs, AListThatIsThereIsAddedAsTheUserChoosesOfThreeAndByDefaultOnlyWhatIsMissing) {
  const std::tuple<int, Qt::Key, std::optional<NameClash>> rows[] = {
      {0, Qt::Key_Return, NameClash::Merge},
      {1, Qt::Key_Return, NameClash::Rename},
      {2, Qt::Key_Return, {}},
      {0, Qt::Key_Escape, {}}};
  for (const auto& [tabs, key, answer] : rows) {
    WhenShown([&, tabs = tabs, key = key] {
      EXPECT_EQ(Look(*dialog),
                "OPML 가져오기; 이 목록의 그룹이나 채널이 이미 있습니다.\r\n목록의 채널 "
                "9개, 이미 있는 채널 4개; >없는 것만 추가; 모두 다시 추가; 취소");
      for (int i = 0; i < tabs; ++i) Press(Qt::Key_Tab);
      Press(key);
    });
    EXPECT_EQ(AskHowToImport(frame, parent.get(), 9, 4), answer);
  }
}

TEST_F(ListDialogs, WhatAnImportHasLeftOutIsNamedWithItsReason) {
  ShowLeftOut(frame, parent.get(), {.added = 3});
  using enum LeftOutReason;
  WhenShown([&] {
    EXPECT_EQ(dialog->accessibleDescription(),
              "제외한 항목 5개:\r\na$: 피드 주소가 없음\r\n웹 주소가 아님\r\nc: 그룹 안의 그룹에 "
              "있음\r\n외 2개");
    Press(Qt::Key_Return);
  });
  ShowLeftOut(frame, parent.get(),
              {.leftOut = 5, .named = {{"a$", NoAddress}, {"", NotOfTheWeb}, {"c", TooDeep}}});
  EXPECT_EQ(dialog, nullptr);
}

}  // namespace feedloom
