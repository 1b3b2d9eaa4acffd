// The window and what stands behind it, in this process.

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <filesystem>
#include <vector>

#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/ModuleLink.h"
#include "host/Screenshot.h"
#include "host/WindowGeometry.h"
#include "kit/ShippedSkin.h"
#include "profile/HostTexts.h"
#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

// Keeps the messages that it is sent.
class RecordingFrame : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;
  std::vector<unsigned> messages;

 signals:
  void PageShown();

 protected:
  bool event(QEvent* event) override {
    if (event->type() != WindowMessage::kType) return QWidget::event(event);
    messages.push_back(static_cast<WindowMessage*>(event)->number);
    return true;
  }
};

class HostWindowTest : public testing::Test {
 protected:
  HostWindowTest() {
    SetHostTables(ReadHostTexts(skin_.Get().Config()), CodePage::Korean());
    window_ = std::make_unique<HostWindow>("Halvix", Appearance{"dark", "KOR"});
    frame_ = new RecordingFrame(window_->ModuleParent());
    window_->SetFrame(frame_);
    window_->resize(400, 300);
    window_->show();
  }
  // A message of the module, to its parent or to the window around it.
  static void Send(QWidget* receiver, unsigned number, const std::string* text = nullptr) {
    WindowMessage message(number, 0, reinterpret_cast<std::intptr_t>(text));
    QCoreApplication::sendEvent(receiver, &message);
  }
  void Choose(const QString& entry) const {
    for (QAction* action : window_->findChildren<QAction*>()) {
      if (action->text() == entry) action->trigger();
    }
    QCoreApplication::processEvents();
  }

  const ShippedSkin skin_;
  const Registry registry_{skin_.Folder().File("registry.reg")};
  std::unique_ptr<HostWindow> window_;
  RecordingFrame* frame_;
};

TEST_F(HostWindowTest, ShowsTheModulesTextsInOneLineAsTheyAreAndIsBusyWhileItRefreshes) {
  const auto& status = *window_->statusBar()->findChild<QLabel*>();
  for (const auto& [text, shown] : {std::pair(std::string("똠방각하 <b>새</b>\r\n글 &amp; 3개"),
                                              "똠방각하 <b>새</b> 글 &amp; 3개"),
                                    {std::string(5000, 'x'), nullptr}}) {
    const std::string bytes = CodePage::Korean().FromUtf8(text);
    Send(window_->ModuleParent(), kMessageShowText, &bytes);
    EXPECT_EQ(status.text().toStdString(), shown ? shown : text);
    EXPECT_EQ(status.accessibleDescription().toStdString(), text);
  }
  EXPECT_EQ(status.textFormat(), Qt::PlainText);
  QCoreApplication::processEvents();
  EXPECT_EQ(window_->width(), 400);
  Send(window_->ModuleParent(), kMessageShowText);
  EXPECT_EQ(status.text().size(), 5000) << "no text, no change";

  const auto& busy = *window_->statusBar()->findChild<QProgressBar*>();
  for (const unsigned message :
       {kMessageRefreshEnded, kMessageRefreshBegan, kMessageRefreshEnded}) {
    Send(window_.get(), message);
    EXPECT_EQ(busy.isVisible(), message == kMessageRefreshBegan);
  }
}

TEST_F(HostWindowTest, TheMenuCommandsTheFrameAndOffersOtherLooksThanThoseOfNow) {
  const QSignalSpy closing(window_.get(), &HostWindow::Closing);
  std::vector<Appearance> chosen;
  QObject::connect(window_.get(), &HostWindow::AppearanceChosen, window_.get(),
                   [&](const Appearance& appearance) { chosen.push_back(appearance); });
  for (const char* entry : {"모두 새로 고침(&R)", "마지막 메시지 보기(&M)", "환경 설정(&S)",
                            "어두운 화면(&D)", "한국어(&K)", "밝은 화면(&L)", "English(&E)"}) {
    Choose(entry);
  }
  EXPECT_EQ(frame_->messages,
            (std::vector<unsigned>{kMessageRefreshAll, kMessageShowTextAgain, kMessageOpenPanel}));
  EXPECT_EQ(chosen, (std::vector<Appearance>{{"light", "KOR"}, {"dark", "ENG"}}));
  EXPECT_EQ(closing.count(), 0);
  Choose("끝내기(&Q)");
  EXPECT_EQ(closing.count(), 1);
}

TEST_F(HostWindowTest, StandsWhereItStoodAndFirstInTheMiddleOfTheScreen) {
  EXPECT_EQ(frame_->width(), window_->width());
  EXPECT_EQ(window_->focusWidget(), frame_);
  EXPECT_EQ(InitialGeometry(QRect(0, 100, 1924, 900)), QRect(450, 200, 1024, 700));
  EXPECT_EQ(InitialGeometry(QRect(10, 20, 640, 480)), QRect(10, 20, 640, 480));
  ASSERT_TRUE(registry_.WriteString(kHostKey, kValueWindowGeometry, "nonsense"));
  RestoreWindowGeometry(*window_, registry_);
  EXPECT_EQ(window_->geometry(), InitialGeometry(window_->screen()->availableGeometry()));
  window_->setGeometry(30, 60, 500, 320);
  ASSERT_TRUE(SaveWindowGeometry(*window_, registry_));
  HostWindow next("Halvix");
  RestoreWindowGeometry(next, registry_);
  EXPECT_EQ(next.geometry(), QRect(30, 60, 500, 320));
}

TEST_F(HostWindowTest, APictureNeedsAModuleThatTellsOfItsPages) {
  EXPECT_TRUE(Screenshot(*window_, *window_, "unused.png").Start());
  Screenshot late(*window_, *frame_, "unused.png");
  ASSERT_FALSE(late.Start(std::chrono::milliseconds(1)));
  EXPECT_EQ(QCoreApplication::exec(), 1);
}

TEST(ModuleLinkTest, LeadsToTheInstalledModule) {
  const TempFolder folder;
  const std::string installed = folder.Write("installed", "module");
  const std::string moved = folder.Write("moved", "module");
  const std::string own = folder.Write("own", "my module");
  const std::string link = folder.File("link");
  EXPECT_TRUE(LinkModule(link, ""));
  for (const std::string& module : {installed, moved}) {
    for (const std::string& found : {module, module, std::string()}) {
      EXPECT_EQ(LinkModule(link, found), std::nullopt);
      EXPECT_EQ(fs::read_symlink(link), module);
    }
  }
  fs::remove(moved);
  EXPECT_TRUE(LinkModule(link, ""));
  EXPECT_EQ(LinkModule(own, installed), std::nullopt);
  EXPECT_EQ(folder.Read("own"), "my module");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"installed", "link", "own"}));
}

}  // namespace
}  // namespace feedloom

#include "HostWindowTest.moc"
