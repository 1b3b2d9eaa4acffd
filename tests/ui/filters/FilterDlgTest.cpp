// The dialog of filters, over a real store.

#include "store/Filters.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/filters/Filters.h"

namespace feedloom {

struct FilterDlg : DialogFixture {
  using Rules = std::vector<FilterRule>;

  FilterDlg() {
    frame.db.AddTables({"gone_links.sql", "filters.sql"});
    frame.db.AddChannelWithPosts(AddFolder(frame.GetStore(), "News", 4), "Daily", 12);
    AddCabinet(frame.GetStore(), "Keep", 7);
  }

  static FilterRule Title(const std::string& text) {
    return {.conditions = {{.text = text}}, .marksRead = true};
  }
  void Show(const Rules& rules, Action action) {
    ASSERT_TRUE(SaveFilters(frame.GetStore(), rules));
    WhenShown(std::move(action));
    ShowFilters(
        frame, frame.db.Shared(),
        [thread = frame.interfaceThread](auto work) { thread->Queue(std::move(work)); },
        parent.get());
  }
  Rules Stored() { return LoadFilters(frame.GetStore()).value(); }
  QListView& List() { return *dialog->findChild<QListView*>(); }
  std::string Rows() {
    QStringList rows;
    for (int row = 0; row < List().model()->rowCount(); ++row) {
      const QModelIndex index = List().model()->index(row, 0);
      rows << (index.data(Qt::CheckStateRole) == Qt::Checked ? "*" : "") + index.data().toString();
    }
    return rows.join("|").toStdString();
  }
  // Waits until the dialog says this somewhere.
  bool Says(const QString& text) {
    return QTest::qWaitFor([&] {
      return std::ranges::any_of(dialog->findChildren<QLabel*>(), [&](const QLabel* label) {
        return label->isVisible() && label->text().contains(text);
      });
    });
  }
  void Type(const QString& text) { QTest::keyClicks(dialog->focusWidget(), text); }
  void GoOn(int stops) {
    for (int i = 0; i < stops; ++i) Press(Qt::Key_Tab);
  }
};

TEST_F(FilterDlg, CountsWhatARuleMeetsWhileItIsTyped) {
  Show({}, [&] {
    EXPECT_TRUE(Says("선택한 필터가 없습니다."));
    Click("추가");
    Type("First");
    GoOn(4);  // place, field, test
    EXPECT_TRUE(Says("찾을 말을 입력하십시오."));
    Type("post 1");
    EXPECT_TRUE(Says("해당하는 저장된 글: 4개"));
    Type("1");
    EXPECT_TRUE(Says("해당하는 저장된 글: 1개"));
    EXPECT_TRUE(Says("아무 일도 하지 않습니다."));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Backtab);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    GoOn(1);
    Type("(");
    EXPECT_TRUE(Says("잘못된 정규식입니다: missing ): ("));
    EXPECT_NE(dialog->focusWidget()->accessibleDescription(), "") << "read with the field";
    EXPECT_EQ(Click(), Keys{kTextFilterFaulty}) << "it is on";
    EXPECT_EQ(dynamic_cast<QLineEdit&>(*dialog->focusWidget()).text(), "(");
    Type("post)");
    EXPECT_TRUE(Says("해당하는 저장된 글: 0개"));
    Click();
  });
  const FilterRule stored{.name = "First",
                          .conditions = {{.test = FilterTest::Matches, .text = "(post)"}}};
  EXPECT_EQ(Stored(), Rules{stored});
}

TEST_F(FilterDlg, StoresOrderAndSwitchesOnlyWithOk) {
  const Rules rules{Title("a"), Title("b"), Title("c")};
  const auto edit = [&] {
    EXPECT_EQ(Rows(), "*제목: a|*제목: b|*제목: c");
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Rows(), "*제목: b|*제목: a|*제목: c");
    Press(Qt::Key_Space);
    EXPECT_TRUE(List().model()->moveRow({}, 2, {}, 0)) << "a row that was dragged";
    Click("복사");
    EXPECT_EQ(Rows(), "*제목: c|*제목: b|제목: a|제목: a");
    List().setFocus();
    List().setCurrentIndex(List().model()->index(1, 0));
    Press(Qt::Key_Delete);
    EXPECT_EQ(Rows(), "*제목: c|제목: a|제목: a");
  };
  Show(rules, [&] { edit(), Click("취소"); });
  EXPECT_EQ(Stored(), rules);
  Show(rules, [&] { edit(), Click(); });
  FilterRule off = Title("a");
  off.isOn = false;
  EXPECT_EQ(Stored(), (Rules{Title("c"), off, off}));
}

TEST_F(FilterDlg, ShowsEachFieldAndWhatIsGone) {
  const FilterRule rule{.name = "All",
                        .place = FilterPlace::Folder,
                        .placeName = "Lost",
                        .conditions = {{FilterField::Author, FilterTest::HoldsNot, "Ann"}, {}},
                        .deletes = true,
                        .cabinet = "Away",
                        .notice = FilterNotice::Never};
  Show({rule}, [&] {
    const auto boxes = dialog->findChildren<QComboBox*>();
    QStringList texts;
    for (const QComboBox* box : boxes) texts << box->currentText();
    EXPECT_EQ(texts.join("|").toStdString(),
              "Lost (없어짐)|Away (없어짐)|알리지 않음|글쓴이|포함하지 않음|제목|포함");
    boxes[0]->setCurrentText("    Daily");
    boxes[1]->setCurrentText("Keep");
    QTest::mouseClick(dialog->findChildren<QToolButton*>().last(), Qt::LeftButton);
    Click();
  });
  FilterRule changed = rule;
  changed.place = FilterPlace::Channel;
  changed.placeName = "http://example.com/Daily";
  changed.cabinet = "Keep";
  changed.conditions.pop_back();
  EXPECT_EQ(Stored(), Rules{changed});
}

TEST_F(FilterDlg, AppliesARuleToStoredPostsAfterAQuestion) {
  FilterRule rule = Title("post 1");
  rule.deletes = true;
  rule.isOn = false;  // for new posts
  Show({rule}, [&] {
    EXPECT_TRUE(Says("4개"));
    EXPECT_EQ(Click("저장된 글에 적용"), Keys{kTextFilterAskDelete});
    EXPECT_EQ(frame.askedMore, Korean("해당하는 저장된 글: 4개"));
    EXPECT_EQ(frame.db.Count("TB_POST"), 12) << "declined";
    frame.nextAnswer = MsgBoxAnswer::Consented;
    Click("저장된 글에 적용");
    EXPECT_TRUE(Says("읽음 0개, 삭제 4개, 복사 0개"));
    EXPECT_EQ(frame.messages.size(), 1u);
    EXPECT_EQ(frame.db.Count("TB_POST"), 8);
  });
}

TEST_F(FilterDlg, AsksBeforeAllNewPostsAreDeleted) {
  const FilterRule rule = Title("a");
  Show({rule}, [&] {
    Click("복사");
    const auto boxes = dialog->findChildren<QCheckBox*>();
    QTest::mouseClick(dialog->findChildren<QToolButton*>().last(), Qt::LeftButton);
    for (QCheckBox* box : boxes) box->setChecked(true);
    EXPECT_TRUE(Says("새글을 모두 삭제합니다."));
    EXPECT_EQ(Click(), Keys{kTextFilterAskDeletesAll});
    EXPECT_TRUE(dialog->isVisible());
    frame.nextAnswer = MsgBoxAnswer::Consented;
    Click();
  });
  EXPECT_EQ(Stored(), (Rules{rule, {.marksRead = true, .deletes = true}}));
}

TEST_F(FilterDlg, KeepsWhatWasTypedWhenItCannotBeStored) {
  Show({}, [&] {
    Click("추가");
    GoOn(4);
    Type("a");
    frame.db.Sql("Drop Table TB_FILTER");
    EXPECT_EQ(Click(), Keys{kTextFilterNotSaved});
    EXPECT_EQ(Rows(), "*제목: a");
  });
}

}  // namespace feedloom
