#include <QLabel>
#include <QLineEdit>

#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

class OpmlDlg : public DialogFixture {
 protected:
  std::optional<std::string> Ask() { return AskListAddress(frame, parent.get()); }
};

TEST_F(OpmlDlg, GivesTheAddressThatIsMeant) {
  const std::pair<const char*, const char*> cases[] = {
      {" lists.example/my feeds.opml ", "http://lists.example/my%20feeds.opml"},
      {"https://lists.example/한", "https://lists.example/%ED%95%9C"},
      {"file:///home/me/feeds.opml", "file:///home/me/feeds.opml"},
  };
  for (const auto& [typed, address] : cases) {
    WhenShown([typed = typed](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "OPML 가져오기");
      EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "OPML 주소");
      dialog.findChild<QLineEdit*>()->setText(typed);
      Click(dialog, "확인");
    });
    EXPECT_EQ(Ask(), address);
  }
  EXPECT_EQ(Messages(), Keys{});
}

TEST_F(OpmlDlg, BlanksAreRefusedAndTheKeyboardGoesBackToTheBox) {
  WhenShown([&](QDialog& dialog) {
    Click(dialog, "확인");
    dialog.findChild<QLineEdit*>()->setText(" \t\u3000");
    Click(dialog, "확인");
    EXPECT_EQ(Messages(), (Keys{"RSS_DLG_OPML_EMPTY_MSG", "RSS_DLG_OPML_EMPTY_MSG"}));
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClicks(dialog.focusWidget(), "a.example");
    Press(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(Ask(), "http://a.example");
}

TEST_F(OpmlDlg, CancelOrAParentThatGoesGivesNothing) {
  WhenShown([](QDialog& dialog) { Click(dialog, "취소"); });
  EXPECT_EQ(Ask(), std::nullopt);
  WhenShown([&](QDialog&) { parent.reset(); });
  EXPECT_EQ(Ask(), std::nullopt);
  EXPECT_EQ(Messages(), Keys{});
}

}  // namespace
}  // namespace feedloom
