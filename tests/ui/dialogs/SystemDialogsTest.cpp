// The toolkit's own dialogs: the place for a file, and the printer.
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QStandardPaths>

#include "ui/dialogs/DialogFixture.h"
#include "ui/dialogs/NameFilters.h"

namespace feedloom {
namespace {

class SystemDialogs : public DialogFixture {
 protected:
  // A home directory of the test's, and nothing of the user's own.
  SystemDialogs() {
    QStandardPaths::setTestModeEnabled(true);
    qputenv("HOME", QByteArray::fromStdString(home_.Path()));
  }
  ~SystemDialogs() override {
    qputenv("HOME", oldHome_);
    QStandardPaths::setTestModeEnabled(false);
  }

  std::string AskPlace() { return AskDownloadPlace(frame, parent.get(), "tone.wav").toStdString(); }
  std::string AskExport() { return AskExportPlace(frame, parent.get(), "Skyfold_20261122"); }
  std::string AskImport() { return AskImportFile(frame, parent.get()); }

  // Enters a file of the home directory in the next dialog: title, place, kinds, suggested name.
  void WhenShownEnter(const std::string& look, const std::string& name) {
    WhenShown([=, this] {
      const auto& files = dynamic_cast<QFileDialog&>(*dialog);
      const QStringList parts{files.windowTitle(), files.directory().dirName(),
                              files.nameFilters().join(", "), Box().text()};
      EXPECT_EQ(parts.join("; ").toStdString(), look);
      EXPECT_EQ(files.acceptMode() == QFileDialog::AcceptSave, parts[0].endsWith("저장"));
      Box().setText(QString::fromStdString(home_.File(name)));
      dialog->accept();
    });
  }

  const QByteArray oldHome_ = qgetenv("HOME");
  TempFolder home_;
  const std::string homeName_ = QDir(QString::fromStdString(home_.Path())).dirName().toStdString();
};

TEST_F(SystemDialogs, APlaceIsAskedForWithTheSuggestedName) {
  WhenShownEnter("파일 저장; " + homeName_ + "; All Files (*); tone.wav", "kept.wav");
  EXPECT_EQ(AskPlace(), home_.File("kept.wav"));
  QDir(QString::fromStdString(home_.Path())).mkdir("Documents");
  const char* const look =
      "OPML 파일 저장; Documents; OPML file (*.xml *.opml), All file (*); Skyfold_20261122";
  for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
    WhenShownEnter(look, "목록");
    EXPECT_EQ(AskExport(), home_.File("목록.xml"));
    home_.Write("mine.xml", "");
    WhenShownEnter(look, "mine");
    WhenShown([&] { dynamic_cast<QMessageBox&>(*dialog).button(answer)->click(); });
    EXPECT_EQ(AskExport(), answer == QMessageBox::No ? "" : home_.File("mine.xml"));
  }
}

TEST_F(SystemDialogs, AFileToImportExists) {
  home_.Write("목록.opml", "");
  const std::string look = "OPML 파일 가져오기; " + homeName_ + "; OPML File (*.xml *.opml); ";
  WhenShownEnter(look, "missing.opml");
  WhenShown([&] { dialog->reject(); });  // the complaint
  EXPECT_EQ(AskImport(), "");
  WhenShownEnter(look, "목록.opml");
  EXPECT_EQ(AskImport(), home_.File("목록.opml"));
}

TEST_F(SystemDialogs, NothingIsChosenByCancellingOrWithoutAParent) {
  QPrinter printer;
  const auto hasAnswers = [&] {
    return AskPlace() + AskExport() + AskImport() +
           (ChoosePrinter(printer, parent.get()) ? "printer" : "");
  };
  for (int i = 0; i < 4; ++i) WhenShown([&] { dialog->reject(); });
  EXPECT_EQ(hasAnswers(), "");
  for (int i = 0; i < 4; ++i) {
    WhenShown([&] { parent = std::make_unique<QWidget>(); });
  }
  EXPECT_EQ(hasAnswers(), "");
}

TEST(NameFilters, ListsOfKindsBecomeTheToolkitsFilters) {
  EXPECT_EQ(NameFilters("Notes (old) (*.txt)|*.txt"), QStringList{"Notes (old) (*.txt)"});
  EXPECT_EQ(NameFilters("None||Notes|*.a;*.b;|Half"), QStringList{"Notes (*.a *.b)"});
}

}  // namespace
}  // namespace feedloom
