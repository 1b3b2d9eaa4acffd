// What the user drops on the window from elsewhere.
#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"

namespace feedloom {

struct Drops : ModuleFixture {
  void Drop(QWidget& target, const QList<QUrl>& urls, Qt::DropAction action = Qt::CopyAction) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, action, &data, Qt::LeftButton, {});
    QDropEvent drop({5, 5}, action, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &enter);
    if (enter.isAccepted()) QApplication::sendEvent(&target, &drop);
    EXPECT_NE(drop.dropAction(), enter.isAccepted() ? Qt::MoveAction : Qt::IgnoreAction);
    QCoreApplication::processEvents();
  }
};

TEST_F(Drops, AListIsImportedAndAnAddressBecomesAChannelWhereverTheyAreDropped) {
  CreateFrame();
  const TempFolder files;
  const std::string list = files.Write("list", OpmlDocument(NumberedFolder("Dropped", 1)));
  auto& page = *frame_->findChild<QWebEngineView*>();
  const QUrl shown = page.url();
  Drop(page, {QUrl::fromLocalFile(QString::fromStdString(list))});
  EXPECT_TRUE(WaitUntil([&] { return Labels().join(' ').contains("Dropped"); }));
  std::string preset;
  answers_.Next([&](QDialog& dialog) {
    for (const auto* const edit : dialog.findChildren<QLineEdit*>())
      preset += edit->text().toStdString();
  });
  Drop(*List().viewport(), {QUrl("http://feed.example/a")}, Qt::LinkAction);
  EXPECT_NE(preset.find("http://feed.example/a"), std::string::npos) << preset;
  const auto told = texts_.size();
  Drop(Tree(), {QUrl("javascript:alert(1)")}, Qt::MoveAction);
  EXPECT_EQ(texts_.size(), told) << "who gives would delete it";
  Drop(page, {QUrl("javascript:alert(1)")});
  EXPECT_EQ(texts_.back(), "여기에는 OPML 파일이나 피드의 주소(http, https)를 놓으십시오.");
  EXPECT_EQ(page.url(), shown);
}

}  // namespace feedloom
