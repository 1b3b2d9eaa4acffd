// The control panel in use, in both languages and with any skin.
#include <QLabel>
#include <QMessageBox>
#include <QSlider>
#include <QStackedWidget>

#include "skin/Keys.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/panel/ControlPanel.h"
#include "vxctrl/CVxRadioButton.h"
#include "vxctrl/SkinPieces.h"

namespace feedloom {
namespace {

constexpr Settings kSound{.feedDeleteDate = 15};

class ControlPanel : public DialogFixture {
 protected:
  std::optional<Settings> Edit(const Settings& stored, Deed deed) {
    WhenShown(std::move(deed));
    const auto save = [this](const Settings& settings) { saved.push_back(settings); };
    return EditSettings(*shownIn, parent.get(), {.load = [&] { return stored; }, .save = save});
  }
  QStackedWidget& Pages() { return *dialog->findChild<QStackedWidget*>(); }
  // The page of the tab that is pressed now.
  std::string Open(int tab) {
    QTest::mouseClick(dialog->findChildren<CButtonEx*>()[tab], Qt::LeftButton);
    return Look(*Pages().currentWidget());
  }
  CVxRadioButton& Radio(int page, int radio) {
    return *Pages().widget(page)->findChildren<CVxRadioButton*>()[radio];
  }
  void Choose(int page, int radio) {
    Open(page);
    QTest::mouseClick(&Radio(page, radio), Qt::LeftButton, {}, QPoint(10, 10));
  }
  // Shows all pages with this skin.
  void ExpectFitWith(const Skin& skin) {
    struct SkinnedFrame : FakeFrame {
      explicit SkinnedFrame(const Skin& skin_) : other(skin_) {}
      const Skin& GetSkin() const override { return other; }
      const Skin other;
    } skinned(skin);
    shownIn = &skinned;
    const auto edited = Edit(kSound, [&] {
      for (auto* warning : dialog->findChildren<QMessageBox*>()) warning->close();
      for (const int page : {0, 1, 3, 2}) {
        Open(page);
        ExpectFitForUse(*dialog);
      }
      Radio(2, 1).click();
      Press(Qt::Key_Return);
    });
    EXPECT_EQ(edited, (Settings{.previewMode = 1, .feedDeleteDate = 15}));
  }

  std::vector<Settings> saved;
  Frame* shownIn = &frame;
};

TEST_F(ControlPanel, ShowsEachSettingAndSavesWhatIsNotTouchedAsItWas) {
  const std::string notice = "새글을 알리는 간격; ", slider = "알림 창의 투명도; 알림 창의 투명도=";
  Edit({}, [&] {
    EXPECT_EQ(Look(*dialog),
              "환경 설정; *자동 업데이트; 새글 알림; 글 보기; 글 정리; 새글 받기; "
              ">*자동으로 받습니다.; 자동으로 받지 않습니다.; 받는 간격; *15분; 30분; 1시간; "
              "2시간; 확인; 취소");
    EXPECT_EQ(Radio(0, 3).accessibleDescription(), "받는 간격");
    EXPECT_EQ(Open(1), notice + "*15분; 30분; 1시간; 알리지 않음; " + slider + "0; 불투명; 투명");
    EXPECT_EQ(Open(2), "*미리 보기로 봅니다.; 원문 페이지로 봅니다.");
    EXPECT_EQ(Open(3),
              "*오래된 글을 자동으로 삭제합니다.; 글을 남겨 둘 일수=0; 일이 지난 글 삭제; "
              "프로그램을 시작할 때 한 번 삭제합니다.\n보관함에 저장한 글은 삭제하지 않습니다.; "
              "글을 자동으로 삭제하지 않습니다.");
    Press(Qt::Key_Escape);
  });
  Edit(kSound, [&] { Click("취소"); });
  Edit(kSound, [&] { parent.reset(); });
  parent = std::make_unique<QWidget>();
  EXPECT_TRUE(saved.empty());
  // What no control stands for is kept until another is chosen.
  const Settings odd{5, 7, -1, 180, 9, 1, 3}, kept{1, 7, -1, 100, 1, 1, 3};
  const auto edited = Edit(odd, [&] {
    EXPECT_EQ(Open(0), "새글 받기; 자동으로 받습니다.; *자동으로 받지 않습니다.; 받는 간격");
    EXPECT_EQ(Open(1), notice + "15분; 30분; 1시간; 알리지 않음; " + slider + "100; 불투명; 투명");
    EXPECT_EQ(Open(3).find("일수"), std::string::npos);
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(edited, kept);
  EXPECT_EQ(saved, std::vector{kept});
}

TEST_F(ControlPanel, EachRadioButtonStandsForItsValueAndSoDoesTheSlider) {
  const struct {
    int page, first, count, Settings::*member;
  } groups[] = {{0, 0, 2, &Settings::newFeedMode},
                {0, 2, 4, &Settings::newFeedDuration},
                {1, 0, 4, &Settings::newFeedMsgDuration},
                {2, 0, 2, &Settings::previewMode},
                {3, 0, 2, &Settings::feedDeleteMode}};
  for (const auto& [page, first, count, member] : groups) {
    for (int value = 0; value < count; ++value) {
      Settings before = kSound, after = kSound;
      before.*member = (value + 1) % count;
      after.*member = value;
      EXPECT_EQ(Edit(before, [&] { Choose(page, first + value), Press(Qt::Key_Return); }), after);
      Edit(after, [&] { EXPECT_TRUE(Radio(page, first + value).isChecked()) << page << value; });
    }
  }
  const auto edited = Edit(kSound, [&] {
    Choose(0, 1), Choose(0, 0), Choose(3, 1), Choose(3, 0);
    EXPECT_TRUE(Radio(0, 2).isEnabled() && Radio(0, 5).isEnabled() && Box().isEnabled());
    QTest::keyClick(dialog->findChild<QSlider*>(), Qt::Key_PageUp);
    const auto ends = Pages().widget(1)->findChildren<QLabel*>().last(2);
    EXPECT_EQ(ends[0]->y(), ends[1]->y());
    Open(2);
    QLabel* const sample = Pages().widget(2)->findChildren<QLabel*>()[1];
    EXPECT_EQ(Radio(2, 1).geometry().topLeft() - sample->geometry().bottomLeft(), QPoint(0, 7));
    QTest::mouseClick(sample, Qt::RightButton);
    EXPECT_TRUE(Radio(2, 0).isChecked());
    QTest::mouseClick(sample, Qt::LeftButton);
    EXPECT_EQ(dialog->focusWidget(), &Radio(2, 1));
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(edited, (Settings{0, 0, 0, 10, 1, 0, 15}));
}

TEST_F(ControlPanel, AnAgeBelowOneIsRefusedWhereTheUserCanMendIt) {
  for (const char* text : {"0", "", "abc", "-4"}) {
    const auto edited = Edit(kSound, [&] {
      Box().setText(text);
      Open(1);
      EXPECT_EQ(Press(Qt::Key_Return), Keys{kTextDeleteDateError}) << text;
      EXPECT_TRUE(Pages().currentIndex() == 3 && Box().hasFocus() && saved.empty());
      Try("1");
    });
    EXPECT_EQ(edited, Settings{.feedDeleteDate = 1});
    EXPECT_EQ(std::exchange(saved, {}).size(), 1U);
  }
  frame.whileAsking = [&] { parent.reset(); };
  EXPECT_EQ(Edit({}, [&] { Press(Qt::Key_Return); }), std::nullopt);
}

TEST_F(ControlPanel, KeysGoFromPageToPageAndToTheFirstControl) {
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Press(key, modifiers);
    EXPECT_EQ(dialog->focusWidget(), &Radio(Pages().currentIndex(), 0));
    const auto tabs = dialog->findChildren<CButtonEx*>();
    for (int page = 0; page < 4; ++page)
      EXPECT_EQ(tabs[page]->isChecked(), page == Pages().currentIndex());
    return Pages().currentIndex();
  };
  Edit(kSound, [&] {
    EXPECT_EQ(press(Qt::Key_PageUp, Qt::ControlModifier), 3);
    EXPECT_EQ(press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), 2);
    EXPECT_EQ(press(Qt::Key_PageDown, Qt::ControlModifier), 3);
    EXPECT_EQ(press(Qt::Key_Tab, Qt::ControlModifier), 0);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(dialog->findChildren<CButtonEx*>()[0])->role(),
              QAccessible::RadioButton);
  });
}

TEST_F(ControlPanel, FitsItsTextsWithAnySkinInTheMiddleOfTheWindow) {
  parent->setGeometry(50, 40, 700, 500);
  Edit(kSound, [&] {
    const QSize least = LoadSkinPlace(frame.GetSkin(), kSectionPanel, kPanelPlace).size();
    EXPECT_EQ(dialog->size(), dialog->size().expandedTo(least));
    EXPECT_LE((dialog->pos() + dialog->rect().center() - parent->mapToGlobal(QPoint(350, 250)))
                  .manhattanLength(),
              2);
  });
  const ShippedSkin shipped("ENG");
  const Skin& english = shipped.Get();
  ExpectFitWith(english);
  ExpectFitWith(Skin({.HostGetText = {}, .HostGetSkinValue = {}}, english.Config()));
  for (const auto& [times, place] :
       {std::pair(3, "the skin's"), {1, ""}, {1, "30,30,60,60"}, {2, "30,30"}}) {
    const auto text = [&, times = times](const char* section, const char* key) {
      return QString::fromStdString(english.GetText(section, key)).repeated(times).toStdString();
    };
    const auto value = [&, place = std::string(place)](const char* section, const char* key) {
      const bool isPlace = std::string(key).ends_with("_POS") && place != "the skin's";
      return isPlace ? place : english.GetSkinValue(section, key);
    };
    ExpectFitWith({{.HostGetText = text, .HostGetSkinValue = value}, english.Config()});
  }
}

}  // namespace
}  // namespace feedloom
