// A module that tells on stdout, a line each, what its host does with it. FAKE_MODULE=null makes
// its Create fail; FAKE_MODULE_CHOOSES names an entry of the host's menu that it chooses once.

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <iostream>
#include <memory>

#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

void Tell(const std::string& text) { std::cout << text << std::endl; }

// Shows a red page at first, a blue one after the key Home.
class FakeFrame : public QWidget {
  Q_OBJECT

 public:
  explicit FakeFrame(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }

 signals:
  void PageShown();

 protected:
  bool event(QEvent* event) override {
    if (event->type() != WindowMessage::kType) return QWidget::event(event);
    Tell("message " + std::to_string(static_cast<WindowMessage*>(event)->number));
    return true;
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Home) Show(Qt::blue);
  }
  void showEvent(QShowEvent*) override {
    Show(Qt::red);
    // The host's own work at start comes first.
    QTimer::singleShot(0, this, [this] { QTimer::singleShot(0, this, &FakeFrame::BeIdle); });
  }
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), page_); }

 private:
  void BeIdle() {
    Tell("idle");
    const QString entry = qEnvironmentVariable("FAKE_MODULE_CHOOSES");
    qunsetenv("FAKE_MODULE_CHOOSES");
    for (QAction* action : window()->findChildren<QAction*>()) {
      if (action->text() == entry) action->trigger();
    }
  }
  void Show(Qt::GlobalColor page) {
    page_ = page;
    update();
    QTimer::singleShot(0, this, &FakeFrame::PageShown);
  }

  Qt::GlobalColor page_ = Qt::red;
};

std::unique_ptr<FakeFrame> theFrame;
const bool hadApplicationAtLoad = QCoreApplication::instance() != nullptr;

}  // namespace
}  // namespace feedloom

QWidget* Create(feedloom::HostCallback HostGetText, feedloom::HostCallback HostGetSkinValue,
                QWidget* parent) {
  using namespace feedloom;
  if (qgetenv("FAKE_MODULE") == "null") return nullptr;
  Tell(hadApplicationAtLoad ? "loaded late" : "loaded early");
  Tell(parent->isVisible() ? "window on screen" : "window to come");
  Tell("text " + HostGetText(kSectionHost, kHostTextMenuQuit));
  Tell("skin " + HostGetSkinValue(kSectionHtml, kImageMainPage));
  theFrame = std::make_unique<FakeFrame>(parent);
  return theFrame.get();
}

void DestroyBtn() {
  feedloom::theFrame.reset();
  feedloom::Tell("destroyed");
}

#include "FakeModule.moc"
