// A module that tells on stdout, a line each, what its host does with it. FAKE_MODULE=null makes
// its Create fail; FAKE_MODULE_CHOOSES names an entry of the host's menu that it chooses once.

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <memory>

#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

void Tell(const QString& text) {
  std::printf("%s\n", text.toUtf8().constData());
  std::fflush(stdout);
}

// Paints a page, then tells so: a red one at first, a blue one after the key Home.
class FakeFrame : public QWidget {
  Q_OBJECT

 public:
  explicit FakeFrame(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::StrongFocus); }

 signals:
  void PageShown();

 protected:
  bool event(QEvent* event) override {
    if (event->type() != WindowMessage::kType) return QWidget::event(event);
    Tell(QString("message %1").arg(static_cast<WindowMessage*>(event)->number, 0, 16));
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
    const QString entry = QString::fromUtf8(qgetenv("FAKE_MODULE_CHOOSES"));
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
bool hadApplicationAtLoad = QCoreApplication::instance() != nullptr;

}  // namespace
}  // namespace feedloom

QWidget* Create(feedloom::HostCallback HostGetText, feedloom::HostCallback HostGetSkinValue,
                QWidget* parent) {
  using namespace feedloom;
  if (qgetenv("FAKE_MODULE") == "null") return nullptr;
  Tell(hadApplicationAtLoad ? "loaded late" : "loaded early");
  Tell(parent->isVisible() ? "window on screen" : "window to come");
  Tell("text " + QString::fromStdString(HostGetText(kSectionHost, kHostTextMenuQuit)));
  Tell("skin " + QString::fromStdString(HostGetSkinValue(kSectionHtml, kImageMainPage)));
  theFrame = std::make_unique<FakeFrame>(parent);
  return theFrame.get();
}

void DestroyBtn() {
  feedloom::theFrame.reset();
  feedloom::Tell("destroyed");
}

#include "FakeModule.moc"
