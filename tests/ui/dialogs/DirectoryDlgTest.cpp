// The dialog that searches the web directory, with a real service.

#include "controls/CVxListCtrl.h"
#include "kit/DirectoryService.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/dialogs/DirectoryModel.h"

namespace feedloom {

struct DirectoryDlg : DialogFixture {
  void Show(Action action) {
    frame.directoryService = service.Address();
    WhenShown(std::move(action));
    ShowDirectory(frame, frame, parent.get());
  }
  CVxListCtrl& Found() { return *dialog->findChild<CVxListCtrl*>(); }
  std::string Line() { return dialog->findChildren<QLabel*>()[0]->text().toStdString(); }
  void Begin() {
    Box().setText("word");
    Box().setFocus();
    Press(Qt::Key_Return);
  }
  std::string WaitForEnd() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return Found().isEnabled(); }));
    return Line();
  }
  std::string Search() { return Begin(), WaitForEnd(); }
  void Select(int row) {
    Found().setFocus();
    Found().setCurrentIndex(Found().model()->index(row, 0));
  }
  void GoToEnd() {
    Press(Qt::Key_End);
    QApplication::processEvents();
  }

  DirectoryService service;
};

TEST_F(DirectoryDlg, ListsWhatTheDirectoryKnowsPageByPage) {
  service.ServeTwoPages();
  service.Fail(2);
  Show([&] {
    EXPECT_EQ(Look(*dialog),
              "채널 디렉터리; >검색어=; 검색; 찾은 채널; 제목; 설명; 채널 주소; ; 닫기");
    EXPECT_EQ(Search(), "전체 73건 중 50건 표시");
    EXPECT_EQ(Found().model()->index(6, 0).data(), "Title 7");
    EXPECT_EQ(Found().model()->index(6, 1).data(), "About 7");
    EXPECT_FALSE(Found().model()->headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    EXPECT_EQ(Found().accessibleDescription().toStdString(), Line());
    Select(0);
    GoToEnd();
    EXPECT_EQ(WaitForEnd(), "채널 디렉터리가 응답하지 않습니다.");
    service.ServeTwoPages();
    GoToEnd();
    EXPECT_EQ(WaitForEnd(), "전체 73건 중 73건 표시");
    GoToEnd();
    EXPECT_TRUE(Found().isEnabled() && Found().hasFocus()) << "there is nothing further";
    EXPECT_EQ(Search(), "전체 73건 중 50건 표시") << "the next search begins with an empty list";
    service.ServeText(1, "[TO]0[QK]");
    EXPECT_EQ(Search(), "찾은 채널이 없습니다.");
    Box().clear();
    frame.whileAsking = [&] { parent.reset(); };
    EXPECT_EQ(Click("검색"), Keys{kTextSearchEmpty});
  });
}

TEST_F(DirectoryDlg, AddsWhatIsSelectedAndStaysOpen) {
  service.Serve(1, 3, 1, 3);
  Show([&] {
    Search();
    Select(0);
    Click("채널 추가");
    Select(1);
    Press(Qt::Key_Return);
    EXPECT_EQ(service.Requests(1), 1) << "Enter on a row is no search";
    const QPoint third = Found().visualRect(Found().model()->index(2, 1)).center();
    QTest::mouseClick(Found().viewport(), Qt::LeftButton, {}, third);
    QTest::mouseDClick(Found().viewport(), Qt::LeftButton, {}, third);
    service.ServeText(1, "[TO]0[HS][IT]t[IU]u[RT][RU][DT]20080501093045[ID]d[PO]0[QK]");
    EXPECT_EQ(Search(), "전체 1건 중 1건 표시");
    Select(0);
    Press(Qt::Key_Return);  // it has no address
  });
  EXPECT_EQ(frame.addedAddresses, (Keys{"http://feed/1", "http://feed/2", "http://feed/3"}));
}

TEST_F(DirectoryDlg, EscapeGivesUpASearchAndThenClosesTheDialog) {
  service.Serve(1, 73, 1, 50);
  service.Hang(2);
  Show([&] {
    Search();
    Select(3);
    GoToEnd();
    EXPECT_EQ(Line(), "채널 디렉터리에서 검색하는 중입니다.");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible() && Found().hasFocus());
    EXPECT_EQ(WaitForEnd(), "전체 73건 중 50건 표시");
    service.Hang(1);
    Begin();
    Press(Qt::Key_Escape);
    EXPECT_EQ(WaitForEnd(), "");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
  });
  Show([&] { Begin(); });  // closed while it runs
}

TEST(DirectoryModelTest, TextsLoseTheirTags) {
  EXPECT_EQ(WithoutTags("<b>bold</B>ness one<br/>two<P class='x'>three"), "boldness one two three");
  EXPECT_EQ(WithoutTags("1 < 2 <3> & <!-- note --><?x?><script>alert(1)</script> <img src="),
            "1 < 2 <3> &    alert(1)  <img src=");
  EXPECT_EQ(WithoutTags("<"), "<");
}

}  // namespace feedloom
