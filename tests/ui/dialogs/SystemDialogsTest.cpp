// The toolkit's own dialogs: the place for a file, and the printer.
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QStandardPaths>

#include "kit/TempFolder.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

class SystemDialogs : public DialogFixture {
 protected:
  QString AskPlace() { return AskDownloadPlace(frame, parent.get(), "tone.wav"); }
  std::string AskExport() { return AskExportPlace(frame, parent.get(), "Skyfold_20261122"); }
  std::string AskImport() { return AskImportFile(frame, parent.get()); }

  static QFileDialog& FileDialog(QDialog& dialog) { return dynamic_cast<QFileDialog&>(dialog); }
  // Types the path of a file in the folder and presses the dialog's button.
  void Enter(QDialog& dialog, const QString& name) {
    const QDir folder(QString::fromStdString(folder_.Path()));
    dialog.findChild<QLineEdit*>()->setText(folder.filePath(name));
    dialog.accept();
  }

  TempFolder folder_;
};

// The home directory of a test, and nothing of the user's own.
class HomeFolder {
 public:
  explicit HomeFolder(const std::string& path) {
    QStandardPaths::setTestModeEnabled(true);
    qputenv("HOME", QByteArray::fromStdString(path));
  }
  ~HomeFolder() {
    qputenv("HOME", home_);
    QStandardPaths::setTestModeEnabled(false);
  }
  HomeFolder(const HomeFolder&) = delete;
  HomeFolder& operator=(const HomeFolder&) = delete;

 private:
  const QByteArray home_ = qgetenv("HOME");
};

TEST_F(SystemDialogs, APlaceIsAskedForWithTheSuggestedName) {
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "파일 저장");
    auto* const name = dialog.findChild<QLineEdit*>();
    EXPECT_EQ(name->text(), "tone.wav");
    name->setText(QString::fromStdString(folder_.File("kept.wav")));
    dialog.accept();
  });
  EXPECT_EQ(AskPlace(), QString::fromStdString(folder_.File("kept.wav")));
}

TEST_F(SystemDialogs, NoPlaceWithoutAnAnswer) {
  WhenShown([](QDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(AskPlace(), "");
  WhenShown([this](QDialog&) { parent.reset(); });
  EXPECT_EQ(AskPlace(), "");
}

TEST_F(SystemDialogs, AListIsExportedToTheSuggestedFileAsXml) {
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "OPML 파일 저장");
    EXPECT_EQ(FileDialog(dialog).nameFilters(),
              (QStringList{"OPML file (*.xml *.opml)", "All file (*)"}));
    const QString name = dialog.findChild<QLineEdit*>()->text();
    EXPECT_EQ(name, "Skyfold_20261122");
    Enter(dialog, name);
  });
  EXPECT_EQ(AskExport(), folder_.File("Skyfold_20261122.xml"));
}

TEST_F(SystemDialogs, AnExportAsksBeforeItReplacesAFile) {
  folder_.Write("mine.xml", "");
  const auto enterAndAnswer = [this](QMessageBox::StandardButton answer) {
    WhenShown([this, answer](QDialog& dialog) {
      WhenShown([&](QDialog& question) {
        EXPECT_TRUE(dialog.isVisible());
        dynamic_cast<QMessageBox&>(question).button(answer)->click();
      });
      Enter(dialog, "mine");
      EXPECT_EQ(dialog.isVisible(), answer == QMessageBox::No);
    });
    const std::string path = AskExport();
    EXPECT_TRUE(answers.AreUsedUp());
    return path;
  };
  EXPECT_EQ(enterAndAnswer(QMessageBox::No), "");
  EXPECT_EQ(enterAndAnswer(QMessageBox::Yes), folder_.File("mine.xml"));
}

TEST_F(SystemDialogs, AFileToImportExists) {
  folder_.Write("목록.opml", "");
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "OPML 파일 가져오기");
    EXPECT_EQ(FileDialog(dialog).nameFilters(), QStringList{"OPML File (*.xml *.opml)"});
    EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "");
    WhenShown([](QDialog& complaint) { complaint.reject(); });
    Enter(dialog, "missing.opml");
    EXPECT_TRUE(dialog.isVisible());
    Enter(dialog, "목록.opml");
  });
  EXPECT_EQ(AskImport(), folder_.File("목록.opml"));
  WhenShown([](QDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(AskImport(), "");
}

TEST_F(SystemDialogs, AListIsLookedForInTheDocumentsOrElseAtHome) {
  const HomeFolder home(folder_.Path());
  const QDir folder(QString::fromStdString(folder_.Path()));
  const auto beginsIn = [this](const QDir& place) {
    WhenShown([&](QDialog& dialog) { EXPECT_EQ(FileDialog(dialog).directory(), place); });
    EXPECT_EQ(AskImport(), "");
  };
  beginsIn(folder);
  folder.mkdir("Documents");
  beginsIn(QDir(folder.filePath("Documents")));
}

TEST_F(SystemDialogs, APrinterIsNotChosenByCancelling) {
  QPrinter printer;
  WhenShown([](QDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(ChoosePrinter(printer, parent.get()));
}

}  // namespace
}  // namespace feedloom
