// The control panel in use.

#include <QLabel>
#include <QMessageBox>

#include "ui/panel/PanelFixture.h"
#include "vxctrl/AccessibleTree.h"

namespace feedloom {
namespace {

constexpr Settings kSound{.feedDeleteDate = 15};
constexpr Settings kAllDifferent{.newFeedMode = 1,
                                 .newFeedDuration = 3,
                                 .newFeedMsgDuration = 2,
                                 .newFeedMsgTransparency = 40,
                                 .previewMode = 1,
                                 .feedDeleteMode = 1,
                                 .feedDeleteDate = 7};

using ControlPanel = PanelFixture;

TEST_F(ControlPanel, OkSavesEveryValueOnceAndGivesIt) {
  const auto edited = Edit(kSound, [](QDialog& panel) {
    EXPECT_EQ(panel.windowTitle(), "환경 설정");
    ClickRadio(panel, 0, 5);
    ClickRadio(panel, 0, 1);
    ClickRadio(panel, 1, 2);
    for (int i = 0; i < 4; ++i) QTest::keyClick(&Slider(panel), Qt::Key_PageUp);
    ClickRadio(panel, 2, 1);
    OpenTab(panel, 3);
    TypeDays(panel, "7");
    ClickRadio(panel, 3, 1);
    Press(panel, Qt::Key_Return);
  });
  EXPECT_EQ(edited, kAllDifferent);
  EXPECT_EQ(saved, std::vector{kAllDifferent});
}

TEST_F(ControlPanel, WhatIsNotTouchedIsSavedAsItWas) {
  EXPECT_EQ(Edit(kAllDifferent, [](QDialog& panel) { Press(panel, Qt::Key_Return); }),
            kAllDifferent);
  EXPECT_EQ(saved, std::vector{kAllDifferent});
}

TEST_F(ControlPanel, CancelEscapeOrAParentThatGoesSavesNothing) {
  const std::vector<DialogAnswers::Deed> deeds = {
      [](QDialog& panel) {
        QTest::mouseClick(panel.findChildren<CButtonEx*>()[5], Qt::LeftButton);
      },
      [](QDialog& panel) { Press(panel, Qt::Key_Escape); }, [this](QDialog&) { parent.reset(); }};
  for (const auto& deed : deeds) {
    EXPECT_EQ(Edit(kSound,
                   [&](QDialog& panel) {
                     ClickRadio(panel, 0, 1);
                     deed(panel);
                   }),
              std::nullopt);
  }
  EXPECT_TRUE(saved.empty());
}

TEST_F(ControlPanel, EachRadioButtonStandsForItsValue) {
  struct Choice {
    int page;
    int radio;
    int Settings::*member;
    int value;
  };
  const Choice choices[] = {
      {0, 0, &Settings::newFeedMode, 0},        {0, 1, &Settings::newFeedMode, 1},
      {0, 2, &Settings::newFeedDuration, 0},    {0, 3, &Settings::newFeedDuration, 1},
      {0, 4, &Settings::newFeedDuration, 2},    {0, 5, &Settings::newFeedDuration, 3},
      {1, 0, &Settings::newFeedMsgDuration, 0}, {1, 1, &Settings::newFeedMsgDuration, 1},
      {1, 2, &Settings::newFeedMsgDuration, 2}, {1, 3, &Settings::newFeedMsgDuration, 3},
      {2, 0, &Settings::previewMode, 0},        {2, 1, &Settings::previewMode, 1},
      {3, 0, &Settings::feedDeleteMode, 0},     {3, 1, &Settings::feedDeleteMode, 1}};
  for (const Choice& choice : choices) {
    SCOPED_TRACE(testing::Message() << "page " << choice.page << " radio " << choice.radio);
    Settings chosen = kSound;
    chosen.*choice.member = choice.value;
    Settings before = kSound;
    before.*choice.member = choice.value == 0 ? 1 : 0;
    const auto choose = [&](QDialog& panel) {
      ClickRadio(panel, choice.page, choice.radio);
      Press(panel, Qt::Key_Return);
    };
    EXPECT_EQ(Edit(before, choose), chosen);
    EXPECT_EQ(Edit(chosen,
                   [&](QDialog& panel) {
                     EXPECT_TRUE(Radio(panel, choice.page, choice.radio).isChecked());
                     Press(panel, Qt::Key_Return);
                   }),
              chosen);
  }
}

TEST_F(ControlPanel, AClickOnASampleChoosesIt) {
  const auto clickSecondSample = [](QDialog& panel) {
    OpenTab(panel, 2);
    const auto samples = Pages(panel).widget(2)->findChildren<QLabel*>();
    ASSERT_EQ(samples.size(), 2);
    EXPECT_EQ(Radio(panel, 2, 1).y() - samples[1]->geometry().bottom() - 1, 6);
    QTest::mouseClick(samples[1], Qt::LeftButton);
    Press(panel, Qt::Key_Return);
  };
  EXPECT_EQ(Edit(kSound, clickSecondSample)->previewMode, 1);
}

TEST_F(ControlPanel, AnAgeBelowOneIsRefusedWhereTheUserCanMendIt) {
  for (const char* text : {"0", "", "abc", "-4"}) {
    SCOPED_TRACE(text);
    frame.questions.clear();
    const auto edited = Edit(kSound, [&](QDialog& panel) {
      TypeDays(panel, text);
      OpenTab(panel, 1);
      frame.whileAsking = [&] {  // what stands behind the message
        EXPECT_TRUE(Tab(panel, 3).isChecked());
        EXPECT_TRUE(Days(panel).isVisible());
        EXPECT_EQ(panel.focusWidget(), &Days(panel));
        EXPECT_EQ(Days(panel).selectedText(), text);
      };
      Press(panel, Qt::Key_Return);
      EXPECT_TRUE(panel.isVisible());
      EXPECT_EQ(frame.questions, std::vector<std::string>{"RSS_MSG_CONFIG_DELETEDATE_ERROR"});
      EXPECT_TRUE(saved.empty());
      TypeDays(panel, "1");
      Press(panel, Qt::Key_Return);
    });
    EXPECT_EQ(edited, Settings{.feedDeleteDate = 1});
    EXPECT_EQ(std::exchange(saved, {}).size(), 1U);
  }
}

TEST_F(ControlPanel, TheFrameMayGoWhileTheMessageShows) {
  frame.whileAsking = [&] { parent.reset(); };
  EXPECT_EQ(Edit({}, [](QDialog& panel) { Press(panel, Qt::Key_Return); }), std::nullopt);
  EXPECT_TRUE(saved.empty());
}

TEST_F(ControlPanel, WithoutDeletionAnyAgeWillDo) {
  EXPECT_EQ(Edit({},
                 [](QDialog& panel) {
                   ClickRadio(panel, 3, 1);
                   Press(panel, Qt::Key_Return);
                 }),
            Settings{.feedDeleteMode = 1});
}

TEST_F(ControlPanel, ZerosAreTheFirstChoicesAndNoAge) {
  Edit({}, [](QDialog& panel) {
    for (const auto& [page, radio] : {std::pair(0, 0), {0, 2}, {1, 0}, {2, 0}, {3, 0}}) {
      EXPECT_TRUE(Radio(panel, page, radio).isChecked()) << page << " " << radio;
    }
    EXPECT_EQ(Slider(panel).value(), 0);
    EXPECT_EQ(Days(panel).text(), "0");
    EXPECT_EQ(panel.focusWidget(), &Radio(panel, 0, 0));
  });
}

TEST_F(ControlPanel, AValueThatNothingShowsIsKeptUntilAnotherIsChosen) {
  const Settings odd{.newFeedMode = 5,
                     .newFeedDuration = 7,
                     .newFeedMsgDuration = -1,
                     .newFeedMsgTransparency = 180,
                     .feedDeleteDate = 3};
  const Settings kept{.newFeedMode = 1,
                      .newFeedDuration = 7,
                      .newFeedMsgDuration = -1,
                      .newFeedMsgTransparency = 100,
                      .feedDeleteDate = 3};
  EXPECT_EQ(Edit(odd,
                 [](QDialog& panel) {
                   for (int radio : {2, 3, 4, 5}) EXPECT_FALSE(Radio(panel, 0, radio).isChecked());
                   for (int radio : {0, 1, 2, 3}) EXPECT_FALSE(Radio(panel, 1, radio).isChecked());
                   Press(panel, Qt::Key_Return);
                 }),
            kept);
  EXPECT_EQ(Edit(odd,
                 [](QDialog& panel) {
                   ClickRadio(panel, 1, 3);
                   Press(panel, Qt::Key_Return);
                 })
                ->newFeedMsgDuration,
            3);
}

TEST_F(ControlPanel, WhatHasNoEffectIsDisabled) {
  const auto expectEnabled = [](QDialog& panel, bool isEnabled) {
    for (int radio : {2, 3, 4, 5}) EXPECT_EQ(Radio(panel, 0, radio).isEnabled(), isEnabled);
    EXPECT_EQ(Days(panel).isEnabled(), isEnabled);
  };
  Edit(kAllDifferent, [&](QDialog& panel) {
    expectEnabled(panel, false);
    ClickRadio(panel, 0, 0);
    ClickRadio(panel, 3, 0);
    expectEnabled(panel, true);
    ClickRadio(panel, 0, 1);
    ClickRadio(panel, 3, 1);
    expectEnabled(panel, false);
  });
}

TEST_F(ControlPanel, ATabShowsItsPageAndStaysPressed) {
  const auto expectShown = [](QDialog& panel, int shown) {
    for (int page = 0; page < 4; ++page) {
      EXPECT_EQ(Tab(panel, page).isChecked(), page == shown) << page;
      EXPECT_EQ(Radio(panel, page, 0).isVisible(), page == shown) << page;
    }
  };
  const auto press = [&](QDialog& panel, Qt::Key key, Qt::KeyboardModifiers modifiers, int shown) {
    Press(panel, key, modifiers);
    expectShown(panel, shown);
    EXPECT_EQ(panel.focusWidget(), &Radio(panel, shown, 0));
  };
  Edit(kSound, [&](QDialog& panel) {
    expectShown(panel, 0);
    for (int page : {3, 1, 2, 0}) {
      OpenTab(panel, page);
      expectShown(panel, page);
    }
    constexpr auto kBackwards = Qt::ControlModifier | Qt::ShiftModifier;
    press(panel, Qt::Key_PageUp, Qt::ControlModifier, 3);
    press(panel, Qt::Key_Backtab, kBackwards, 2);
    press(panel, Qt::Key_PageDown, Qt::ControlModifier, 3);
    press(panel, Qt::Key_Tab, Qt::ControlModifier, 0);
  });
}

TEST_F(ControlPanel, TheTabKeyFollowsTheReadingOrder) {
  Edit(kSound, [](QDialog& panel) {
    const auto buttons = panel.findChildren<CButtonEx*>();
    OpenTab(panel, 3);
    for (QWidget* next : std::initializer_list<QWidget*>{&Radio(panel, 3, 0), &Days(panel),
                                                         buttons[4], buttons[5], buttons[3]}) {
      Press(panel, Qt::Key_Tab);
      EXPECT_EQ(panel.focusWidget(), next);
    }
  });
}

TEST_F(ControlPanel, AScreenReaderFindsANameForEachControl) {
  Edit(kSound, [](QDialog& panel) {
    for (int page : {3, 2, 1, 0}) {
      OpenTab(panel, page);
      EXPECT_EQ(Unlabelled(panel), QStringList()) << page;
    }
    QAccessibleInterface* const tab = QAccessible::queryAccessibleInterface(&Tab(panel, 0));
    EXPECT_TRUE(tab->state().checked && tab->role() == QAccessible::RadioButton);
    EXPECT_EQ(Days(panel).accessibleName(), "글을 남겨 둘 일수");
    EXPECT_EQ(Radio(panel, 0, 3).accessibleDescription(), "받는 간격");
  });
}

TEST_F(ControlPanel, WorksWithoutAnySkin) {
  SkinnedFrame bare(Skin({.HostGetText = {}, .HostGetSkinValue = {}}, frame.GetSkin().Config()));
  EXPECT_EQ(Edit(bare, kSound,
                 [](QDialog& panel) {
                   for (auto* warning : panel.findChildren<QMessageBox*>()) warning->close();
                   OpenTab(panel, 2);
                   Radio(panel, 2, 1).click();
                   Press(panel, Qt::Key_Return);
                 }),
            (Settings{.previewMode = 1, .feedDeleteDate = 15}));
}

}  // namespace
}  // namespace feedloom
