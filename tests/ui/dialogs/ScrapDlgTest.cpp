#include <QComboBox>
#include <QLabel>

#include "store/Cabinets.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

class ScrapDlg : public DialogFixture {
 protected:
  int Add(const char* title, int order) {
    return AddCabinet(frame.GetStore(), Korean(title), order);
  }
  std::optional<int> Ask() { return ChooseCabinet(frame, parent.get()); }

  static QStringList Entries(QDialog& dialog) {
    const auto* box = dialog.findChild<QComboBox*>();
    QStringList entries;
    for (int i = 0; i < box->count(); ++i) entries << box->itemText(i);
    return entries;
  }
};

TEST_F(ScrapDlg, OffersAllCabinetsInTheirOrderAndInsistsOnAChoice) {
  Add("Later", 3);
  const int recipes = Add("요리", 1);
  Add("Keep", 2);
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "스크랩");
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "보관함 선택");
    EXPECT_EQ(Entries(dialog), QStringList({"요리", "Keep", "Later"}));
    Click(dialog, "확인");
    EXPECT_EQ(Messages(), Keys{"RSS_DLG_SCRAP_EMPTY_MSG"});
    EXPECT_TRUE(dialog.isVisible());

    Press(dialog, Qt::Key_Down);
    Press(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(Ask(), recipes);
}

TEST_F(ScrapDlg, TheOnlyCabinetIsChosenAtOnce) {
  const int keep = Add("Keep", 1);
  WhenShown([](QDialog& dialog) { Press(dialog, Qt::Key_Return); });
  EXPECT_EQ(Ask(), keep);
  WhenShown([](QDialog& dialog) { Press(dialog, Qt::Key_Escape); });
  EXPECT_EQ(Ask(), std::nullopt);
}

TEST_F(ScrapDlg, WithoutCabinetsThereIsNothingToChoose) {
  WhenShown([](QDialog& dialog) { Press(dialog, Qt::Key_Return); });
  EXPECT_EQ(Ask(), std::nullopt);
  EXPECT_EQ(Messages(), Keys{"RSS_DLG_SCRAP_EMPTY_MSG"});
}

}  // namespace
}  // namespace feedloom
