// The toolkit's own dialogs: the place for a file, and the printer.
#include <QFileInfo>
#include <QLineEdit>
#include <QPrinter>

#include "kit/TempFolder.h"
#include "ui/dialogs/DialogFixture.h"

namespace feedloom {
namespace {

class SystemDialogs : public DialogFixture {
 protected:
  QString AskPlace() { return AskDownloadPlace(frame, parent.get(), "tone.wav"); }

  TempFolder folder_;
};

TEST_F(SystemDialogs, APlaceIsAskedForWithTheSuggestedName) {
  WhenShown([&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "파일을 저장할 곳");
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

TEST_F(SystemDialogs, APrinterIsNotChosenByCancelling) {
  QPrinter printer;
  WhenShown([](QDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(ChoosePrinter(printer, parent.get()));
}

}  // namespace
}  // namespace feedloom
