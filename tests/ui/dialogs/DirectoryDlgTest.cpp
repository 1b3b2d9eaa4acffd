// The dialog that searches the web directory, with a real service.
#include <QHeaderView>
#include <QLabel>

#include "skin/Keys.h"
#include "ui/dialogs/DialogFixture.h"
#include "ui/dialogs/DirectoryModel.h"
#include "ui/list/DirectoryService.h"
#include "vxctrl/CVxListCtrl.h"

namespace feedloom {
namespace {

class DirectoryDlg : public DialogFixture {
 protected:
  void Show(Deed deed) {
    frame.directoryService = service.Address();
    WhenShown(std::move(deed));
    ShowDirectory(frame, parent.get());
  }
  CVxListCtrl& Found() { return *dialog->findChild<CVxListCtrl*>(); }
  // What the line below the list says, and whether a feed can be added.
  std::string Line() {
    const std::string line = dialog->findChildren<QLabel*>()[0]->text().toStdString();
    EXPECT_EQ(Found().accessibleDescription().toStdString(), line);
    return (Look(*dialog).find("; 채널 추가") == std::string::npos ? "" : "+ ") + line;
  }
  void Begin() {
    Box().setText("word");
    Box().setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Line(), "채널 디렉터리에서 검색하는 중입니다.");
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
  // Goes to the last row, where a further page is asked for.
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
    EXPECT_EQ(Look(*dialog), "채널 디렉터리; >검색어=; 검색; 찾은 채널; ; 닫기");
    EXPECT_EQ(Search(), "전체 73건 중 50건 표시");
    std::string cells;
    for (int i = 0; i < 3; ++i) {
      cells += Found().model()->headerData(i, Qt::Horizontal).toString().toStdString() + "=" +
               Found().model()->index(6, i).data().toString().toStdString() + ";";
    }
    EXPECT_EQ(cells, "제목=Title 7;설명=About 7;채널 주소=http://feed/7;");
    Select(0);
    GoToEnd();
    EXPECT_EQ(WaitForEnd(), "+ 채널 디렉터리가 응답하지 않습니다.");
    service.ServeTwoPages();
    GoToEnd();
    EXPECT_EQ(WaitForEnd(), "+ 전체 73건 중 73건 표시");
    EXPECT_EQ(Found().SelectedRows(), std::vector{49});
    GoToEnd();
    EXPECT_TRUE(Found().isEnabled() && Found().hasFocus()) << "there is nothing further";
    EXPECT_EQ(Search(), "전체 73건 중 50건 표시") << "the next search begins with an empty list";
    dialog->resize(1000, 600);  // what is added goes to the word and to the descriptions
    QApplication::processEvents();
    ExpectRoomIn(*dialog);
    EXPECT_EQ(Found().header()->length(), Found().viewport()->width());
    EXPECT_GT(Found().columnWidth(1), Found().columnWidth(2));
    EXPECT_FALSE(Found().header()->sectionsClickable());
    EXPECT_GT(std::min(Found().height(), Box().width()), 400);
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
    Found().selectAll();
    EXPECT_EQ(Found().SelectedRows().size(), 1U);
    service.ServeText(1, "[TO]0[HS][IT]t[IU]u[RT][RU][DT]20080501093045[ID]d[PO]0[QK]");
    Search();
    Select(0);
    EXPECT_EQ(Line(), "전체 1건 중 1건 표시");  // and it has no address
    Click("닫기");
    EXPECT_FALSE(dialog->isVisible());
  });
  EXPECT_EQ(frame.addedAddresses, (Keys{"http://feed/1", "http://feed/2", "http://feed/3"}));
}

TEST_F(DirectoryDlg, SaysWhenThereIsNothingNoAnswerOrNoWord) {
  service.ServeText(1, "[TO]0[QK]");
  Show([&] {
    EXPECT_EQ(Search(), "찾은 채널이 없습니다.");
    service.Fail(1);
    EXPECT_EQ(Search(), "채널 디렉터리가 응답하지 않습니다.");
    Box().clear();
    EXPECT_EQ(Click("검색"), Keys{kTextSearchEmpty});
    frame.whileAsking = [&] { parent.reset(); };
    Press(Qt::Key_Return);
  });
}

TEST_F(DirectoryDlg, EscapeGivesUpASearchAndThenClosesTheDialog) {
  service.Serve(1, 73, 1, 50);
  service.Hang(2);
  Show([&] {
    Search();
    Select(3);
    GoToEnd();
    EXPECT_EQ(Line(), "채널 디렉터리에서 검색하는 중입니다.");
    QWidget* const under = dialog->childAt(Found().geometry().center());
    EXPECT_EQ(under->cursor().shape(), Qt::WaitCursor);
    Press(Qt::Key_Return);
    QTest::mouseDClick(under, Qt::LeftButton);
    Press(Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible() && Found().hasFocus());
    EXPECT_EQ(WaitForEnd(), "+ 전체 73건 중 50건 표시");
    service.Hang(1);
    Begin();
    Press(Qt::Key_Escape);
    EXPECT_EQ(WaitForEnd(), "");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
  });
  EXPECT_EQ(frame.addedAddresses, Keys());
  Show([&] { Begin(); });  // closed while it runs
}

TEST(DirectoryModelTest, TextsLoseTheirTagsAndTooltipsShowThem) {
  DirectoryModel model(CodePage::Korean(), {}, nullptr);
  PostRow row;
  row.feedUrl = "<img src='x'>";
  model.Append({row});
  EXPECT_EQ(model.index(0, 2).data(Qt::ToolTipRole), "<qt>&lt;img src='x'&gt;");
  const std::pair<const char*, const char*> cases[] = {
      {"<b>bold</B>ness one<br/>two<P class='x'>three", "boldness one two three"},
      {"1 < 2 <3> & 4 > 3", "1 < 2 <3> & 4 > 3"},
      {"<!-- note --><?xml?><script>alert(1)</script>", "   alert(1) "},
      {"open <img src=", "open <img src="},
      {"<", "<"},
  };
  for (const auto& [text, plain] : cases) EXPECT_EQ(WithoutTags(text), plain);
}

}  // namespace
}  // namespace feedloom
