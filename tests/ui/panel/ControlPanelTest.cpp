
#include "controls/CVxRadioButton.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/panel/ControlPanel.h"

namespace feedloom {

constexpr Settings kSound{.feedDeleteDate = 15};

struct ControlPanel : DialogFixture {
  std::optional<Settings> Edit(const Settings& stored, Action action) {
    WhenShown(std::move(action));
    const auto save = [this](const Settings& settings) {
      if (canSave) saved.push_back(settings);
      return canSave;
    };
    return EditSettings(frame, parent.get(), {.load = [&] { return stored; }, .save = save});
  }
  QStackedWidget& Pages() { return *dialog->findChild<QStackedWidget*>(); }
  std::string Open(int tab) {
    QTest::mouseClick(dialog->findChildren<CButtonEx*>()[tab], Qt::LeftButton);
    ExpectRoomIn(*dialog);
    return Look(*Pages().currentWidget());
  }
  CVxRadioButton& Radio(int page, int radio) {
    return *Pages().widget(page)->findChildren<CVxRadioButton*>()[radio];
  }
  std::vector<Settings> saved;
  bool canSave = true;
};

TEST_F(ControlPanel, ShowsEachSettingAndSavesWhatIsNotTouchedAsItWas) {
  Edit({}, [&] {
    EXPECT_EQ(Look(*dialog),
              "환경 설정; *자동 받기; 새 글 알림; 글 보기; 글 정리; 새 글 받기; >*자동으로 받기; "
              "직접 새로 고칠 때만 받기; 받는 간격; *15분; 30분; 1시간; 2시간; 확인; 취소");
    EXPECT_EQ(Open(1),
              "새 글을 알리는 간격; *15분; 30분; 1시간; 알리지 않음; 알림 창의 투명도; 알림 창의 "
              "투명도=0; 불투명; 투명");
    EXPECT_EQ(Open(2), "*미리 보기; 원문 페이지");
    EXPECT_EQ(Open(3),
              "*오래된 글을 자동으로 삭제하기; 글을 남겨 둘 일수=0; 일이 지난 글 삭제; "
              "Feedloom을 시작할 때마다 삭제합니다.\n보관함에 스크랩한 글은 남습니다.; "
              "자동으로 삭제하지 않기");
    Click("취소");
  });
  // What no control stands for is kept until another is chosen.
  const Settings odd{5, 7, -1, 180, 9, 1, 3}, kept{1, 7, -1, 100, 1, 1, 3};
  Edit(odd, [&] {
    EXPECT_EQ(Open(0), "새 글 받기; 자동으로 받기; *직접 새로 고칠 때만 받기; 받는 간격");
    EXPECT_EQ(Open(1).find("*"), std::string::npos);
    EXPECT_EQ(Open(3).find("일수"), std::string::npos);
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(saved, std::vector{kept});
}

TEST_F(ControlPanel, EachRadioButtonStandsForItsValueAndSoDoesTheSlider) {
  const std::tuple<int, int, int, int Settings::*> groups[] = {
      {0, 0, 2, &Settings::newFeedMode},
      {0, 2, 4, &Settings::newFeedDuration},
      {1, 0, 4, &Settings::newFeedMsgDuration},
      {2, 0, 2, &Settings::previewMode},
      {3, 0, 2, &Settings::feedDeleteMode}};
  for (const auto& [page, first, count, member] : groups) {
    for (int value = 0; value < count; ++value) {
      Settings before = kSound, after = kSound;
      before.*member = (value + 1) % count;
      after.*member = value;
      const auto choose = [&, page = page, radio = first + value] {
        Radio(page, radio).click(), Press(Qt::Key_Return);
      };
      EXPECT_EQ(Edit(before, choose), after);
      Edit(after, [&, page = page, radio = first + value] {
        EXPECT_TRUE(Radio(page, radio).isChecked()) << page << radio;
        EXPECT_EQ(Radio(0, 2).accessibleDescription(), "받는 간격");
      });
    }
  }
  const auto edited = Edit(kSound, [&] {
    for (const int page : {0, 3}) Radio(page, 1).click(), Radio(page, 0).click();
    EXPECT_TRUE(Radio(0, 2).isEnabled() && Radio(0, 5).isEnabled() && Box().isEnabled());
    QTest::keyClick(dialog->findChild<QSlider*>(), Qt::Key_PageUp);
    Open(2);
    QTest::mouseClick(Pages().widget(2)->findChildren<QLabel*>()[1], Qt::LeftButton);  // a sample
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(edited, (Settings{0, 0, 0, 10, 1, 0, 15}));
}

TEST_F(ControlPanel, WhatIsBelowOneDayOrCannotBeSavedStaysWhereTheUserCanMendIt) {
  for (const char* text : {"0", "", "-4"}) {
    Edit(kSound, [&] {
      Box().setText(text);
      EXPECT_EQ(Press(Qt::Key_Return), Keys{kTextDeleteDateError}) << text;
      EXPECT_EQ(Pages().currentIndex(), 3);
      Try("1");
    });
  }
  EXPECT_EQ(saved, std::vector(3, Settings{.feedDeleteDate = 1}));
  canSave = false;
  const auto refused = Edit(kSound, [&] {
    EXPECT_EQ(Press(Qt::Key_Return), Keys{kTextSettingsNotSaved});
    Click("취소");
  });
  EXPECT_EQ(refused, std::nullopt);
  frame.whileAsking = [&] { parent.reset(); };
  EXPECT_EQ(Edit({}, [&] { Press(Qt::Key_Return); }), std::nullopt);
}

TEST_F(ControlPanel, FitsItsEnglishTextsAndKeysGoFromPageToPage) {
  const ShippedSkin english("ENG");
  frame.shownSkin = &english.Get();
  const auto press = [&](Qt::Key key, int modifiers, int page) {
    Press(key, Qt::KeyboardModifiers(modifiers));
    ExpectRoomIn(*dialog);
    EXPECT_TRUE(Pages().currentIndex() == page && Radio(page, 0).hasFocus());
    EXPECT_TRUE(dialog->findChildren<CButtonEx*>()[page]->isChecked());
  };
  Edit(kSound, [&] {
    press(Qt::Key_PageUp, Qt::CTRL, 3);
    press(Qt::Key_Backtab, Qt::CTRL | Qt::SHIFT, 2);
    press(Qt::Key_PageDown, Qt::CTRL, 3);
    press(Qt::Key_Tab, Qt::CTRL, 0);
    press(Qt::Key_Tab, Qt::CTRL, 1);
  });
}

}  // namespace feedloom
