// The window and what stands behind it, in this process.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTest>

#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "kit/ShippedSkin.h"
#include "profile/HostTexts.h"
#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

class HostWindowTest : public testing::Test {
 protected:
  HostWindowTest() {
    SetHostTables(ReadHostTexts(skin_.Get().Config()), CodePage::Korean());
    window_ = std::make_unique<HostWindow>("Halvix", Appearance{"dark", "KOR"});
    window_->SetFrame(new QWidget(window_->ModuleParent()));
    window_->resize(400, 300);
    window_->show();
  }
  // A message of the module, to its parent or to the window around it.
  static void Send(QWidget* receiver, unsigned number, const std::string* text = nullptr) {
    WindowMessage message(number, 0, reinterpret_cast<std::intptr_t>(text));
    QCoreApplication::sendEvent(receiver, &message);
    QCoreApplication::processEvents();
  }

  const ShippedSkin skin_;
  std::unique_ptr<HostWindow> window_;
};

TEST_F(HostWindowTest, ShowsTheModulesTextsInOneLineAsTheyAreAndIsBusyWhileItRefreshes) {
  const auto& status = *window_->statusBar()->findChild<QLabel*>();
  const std::string bytes = CodePage::Korean().FromUtf8("똠방각하 <b>새</b>\r\n글 ");
  const std::string text = bytes + std::string(5000, 'x');
  Send(window_->ModuleParent(), kMessageShowText, &text);
  Send(window_->ModuleParent(), kMessageShowText);
  EXPECT_EQ(status.text(), "똠방각하 <b>새</b> 글 " + QString(5000, 'x'));
  EXPECT_EQ(status.textFormat(), Qt::PlainText);
  EXPECT_EQ(window_->width(), 400);

  const auto& busy = *window_->statusBar()->findChild<QProgressBar*>();
  for (const unsigned message : {kMessageRefreshBegan, kMessageRefreshEnded}) {
    Send(window_.get(), message);
    EXPECT_EQ(busy.isVisible(), message == kMessageRefreshBegan);
  }
}

TEST_F(HostWindowTest, TheMenuOffersOtherLooksThanThoseOfNowAndTheEnd) {
  QStringList told;
  QObject::connect(window_.get(), &HostWindow::Closing, [&] { told << "closing"; });
  QObject::connect(window_.get(), &HostWindow::AppearanceChosen, [&](const Appearance& chosen) {
    told << QString::fromStdString(chosen.skin + " " + chosen.language);
  });
  for (const char* entry :
       {"어두운 화면(&D)", "한국어(&K)", "밝은 화면(&L)", "English(&E)", "끝내기(&Q)"}) {
    for (auto* action : window_->findChildren<QAction*>())
      if (action->text() == entry) action->trigger();
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(told, QStringList({"light KOR", "dark ENG", "closing"}));
}

}  // namespace
}  // namespace feedloom
