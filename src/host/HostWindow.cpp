#include "host/HostWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QIcon>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>
#include <utility>

#include "host/HostTables.h"
#include "host/MessageLog.h"
#include "host/ModulePane.h"
#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

// Shows `text` on one line, clipped at the window's edge. The whole text is the tool tip.
void ShowStatus(QLabel& label, const QString& text) {
  label.setText(text.simplified());
  label.setAccessibleDescription(text);  // else a screen reader speaks the tool tip's markup
  label.setToolTip(text.isEmpty() ? text : "<p>" + text.toHtmlEscaped() + "</p>");
}

bool IsOfDrag(const QEvent& event) {
  const QEvent::Type type = event.type();
  return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::DragLeave ||
         type == QEvent::Drop;
}

}  // namespace

HostWindow::HostWindow(const QString& caption, Appearance appearance, ViewChoices view)
    : caption_(caption),
      appearance_(std::move(appearance)),
      pane_(new ModulePane(this)),
      log_(new MessageLog(this)),
      status_(new QLabel(this)),
      undo_(new QToolButton(this)),
      busy_(new QProgressBar(this)),
      stop_(new QToolButton(this)) {
  setWindowTitle(caption);
  setWindowIcon(QIcon::fromTheme(QStringLiteral("halvix")));
  setCentralWidget(pane_);
  setAcceptDrops(true);
  MakeMenu(view);
  MakeStatusBar();
}

QWidget* HostWindow::ModuleParent() const { return pane_; }

void HostWindow::SetFrame(QWidget* frame) {
  frame_ = frame;
  pane_->Fill(frame);
  frame->setFocus();
}

std::intptr_t HostWindow::SendToFrame(unsigned message, std::intptr_t wParam,
                                      std::intptr_t lParam) {
  if (!frame_) return 0;
  WindowMessage event(message, wParam, lParam);
  QCoreApplication::sendEvent(frame_, &event);
  return event.result;
}

void HostWindow::ShowText(const QString& text) { emit pane_->TextReported(text); }

// The module takes what is dropped anywhere on the window. Sent by the toolkit, the events of a
// drag would come back to the widget that has accepted it.
bool HostWindow::event(QEvent* event) {
  if (IsOfDrag(*event)) return frame_ && static_cast<QObject&>(*frame_).event(event);
  if (event->type() != WindowMessage::kType) return QMainWindow::event(event);
  const auto& message = *static_cast<WindowMessage*>(event);
  switch (message.number) {
    case kMessageRefreshBegan:
    case kMessageRefreshEnded:
      ShowRefresh(message.number == kMessageRefreshBegan);
      return true;
    case kMessageRefreshProgress:
      ShowProgress(static_cast<int>(message.wParam), static_cast<int>(message.lParam));
      return true;
    case kMessageUnreadCount:
      ShowUnread(static_cast<int>(message.wParam));
      return true;
    case kMessageNewPosts:
      TellNewPosts(message);
      return true;
    case kMessageUnreadOnlyShown:
      unreadOnly_->setChecked(message.wParam == 1);
      return true;
    default:
      return false;
  }
}

void HostWindow::closeEvent(QCloseEvent* event) {
  if (staysOnClose_ && staysOnClose_()) {
    event->ignore();
    return hide();
  }
  emit Closing();
  QMainWindow::closeEvent(event);
}

// A hidden window cannot be closed.
void HostWindow::Quit() {
  emit Closing();
  hide();
}

void HostWindow::ShowUnread(int unread) {
  setWindowTitle(unread > 0 ? QString("(%1) %2").arg(unread).arg(caption_) : caption_);
  emit UnreadCounted(unread);
}

void HostWindow::TellNewPosts(const WindowMessage& message) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a message carries a pointer as lParam
  const auto& lines = *reinterpret_cast<const std::string*>(message.lParam);
  emit NewPostsCame(static_cast<int>(message.wParam), FromModuleText(lines));
}

void HostWindow::MakeStatusBar() {
  constexpr int kBusyWidth = 120;
  status_->setTextFormat(Qt::PlainText);
  // A long text must not widen the window.
  status_->setMinimumWidth(1);
  status_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  undo_->setText(HostText(kHostTextUndo));
  undo_->hide();
  busy_->setFixedWidth(kBusyWidth);
  busy_->setFormat(HostText(kHostTextProgress));
  busy_->setToolTip(HostText(kHostTextBusy));
  busy_->setAccessibleName(HostText(kHostTextBusy));
  stop_->setDefaultAction(stopRefresh_);
  stop_->setAutoRaise(true);
  stop_->setFocusPolicy(Qt::TabFocus);
  ShowRefresh(false);
  statusBar()->addWidget(status_);
  statusBar()->addWidget(undo_);
  statusBar()->addPermanentWidget(busy_);
  statusBar()->addPermanentWidget(stop_);
  connect(pane_, &ModulePane::TextReported, status_,
          [label = status_](const QString& text) { ShowStatus(*label, text); });
  connect(pane_, &ModulePane::TextReported, log_, [this](const QString& text) { log_->Add(text); });
  connect(pane_, &ModulePane::FailureReported, log_, &MessageLog::MarkFailure);
  connect(pane_, &ModulePane::UndoOffered, this, &HostWindow::OfferUndo);
  connect(
      undo_, &QToolButton::clicked, this, [this] { SendToFrame(kMessageUndo); },
      Qt::QueuedConnection);
}

void HostWindow::OfferUndo(const QString& step) {
  undo_->setVisible(!step.isEmpty());
  undo_->setAccessibleDescription(step);
  undo_->setToolTip(QString("<p>%1</p>").arg(step.toHtmlEscaped()));
}

// Until the first progress comes, the bar only moves.
void HostWindow::ShowRefresh(bool isRunning) {
  busy_->setRange(0, 0);
  busy_->setVisible(isRunning);
  stop_->setVisible(isRunning);
  stopRefresh_->setEnabled(isRunning);
  stopRefresh_->setToolTip(isRunning ? "" : HostText(kHostTextNoRefresh));
}

void HostWindow::ShowProgress(int done, int total) {
  busy_->setRange(0, total);
  busy_->setValue(done);
}

}  // namespace feedloom
