// A module that tells on stdout, a line each, what its host does with it. With FAKE_MODULE=null its
// Create fails, with FAKE_MODULE=close it closes the window; other texts, with a ";" between them,
// are entries of the host's menu that it chooses.

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <iostream>
#include <memory>

#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace {

void Tell(const std::string& text) { std::cout << text << std::endl; }

// Shows a red page at first, a blue one after the key Home.
class FakeFrame : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 signals:
  void PageShown();

 protected:
  bool event(QEvent* event) override {
    if (event->type() != feedloom::WindowMessage::kType) return QWidget::event(event);
    auto& message = *static_cast<feedloom::WindowMessage*>(event);
    if (message.number != feedloom::kMessageOpenContent) {
      return Tell("message " + std::to_string(message.number)), true;
    }
    Tell("open " + *reinterpret_cast<const std::string*>(message.lParam));
    message.result = 1;
    return true;
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Home) Show(Qt::blue);
  }
  void showEvent(QShowEvent*) override {
    setAutoFillBackground(true);
    Show(Qt::red);
    // The host's own work at start comes first.
    QTimer::singleShot(0, this, [this] { QTimer::singleShot(0, this, &FakeFrame::BeIdle); });
  }

 private:
  void BeIdle() {
    Tell("idle");
    for (const QString& choice : qEnvironmentVariable("FAKE_MODULE").split(';')) {
      if (choice == "close") window()->close();
      for (auto* action : window()->findChildren<QAction*>())
        if (action->text() == choice) action->trigger();
    }
    qunsetenv("FAKE_MODULE");
  }
  void Show(Qt::GlobalColor page) {
    setPalette(page);
    QTimer::singleShot(0, this, &FakeFrame::PageShown);
  }
};

std::unique_ptr<FakeFrame> theFrame;
const bool hadApplicationAtLoad = QCoreApplication::instance() != nullptr;

}  // namespace

QWidget* Create(feedloom::HostCallback getText, feedloom::HostCallback getSkinValue,
                QWidget* parent) {
  if (qgetenv("FAKE_MODULE") == "null") return nullptr;
  Tell(hadApplicationAtLoad ? "loaded late" : "loaded early");
  Tell("text " + getText(feedloom::kSectionHost, feedloom::kHostTextMenuQuit));
  Tell("skin " + getSkinValue(feedloom::kSectionHtml, feedloom::kImageMainPage));
  theFrame = std::make_unique<FakeFrame>(parent);
  return theFrame.get();
}

void DestroyBtn() {
  theFrame.reset();
  Tell("destroyed");
}

#include "FakeModule.moc"
