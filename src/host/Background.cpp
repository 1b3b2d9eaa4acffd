#include "host/Background.h"

#include <QEvent>
#include <QGuiApplication>

#include "host/ErrorReport.h"
#include "host/HostSwitches.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/RaiseWindow.h"
#include "host/WindowGeometry.h"
#include "shell/Feedloom.h"
#include "skin/Keys.h"

namespace feedloom {

Background::Background(HostWindow& window, const Registry& registry)
    : window_(window),
      registry_(registry),
      tray_(window.Caption()),
      notice_(QDBusConnection::sessionBus()) {
  FollowModule();
  FollowTray();
  FollowSession();
  window_.StayOnClose([this] { return HideToTray(); });
}

void Background::StartHidden() {
  if (!tray_.IsThere()) window_.showMinimized();
}

void Background::FollowModule() {
  QObject::connect(&window_, &HostWindow::UnreadCounted, &tray_, &TrayIcon::ShowCount);
  QObject::connect(&window_, &HostWindow::NewPostsCame, &notice_,
                   [this](int posts, const QString& lines) {
                     if (NotifiesDesktop(registry_)) notice_.Announce(posts, lines);
                   });
  QObject::connect(&notice_, &DesktopNotice::Clicked, &window_, [this](const QString& token) {
    RaiseWindow(window_, token.toStdString());
    window_.SendToFrame(kMessageShowNewPosts);
  });
  QObject::connect(&notice_, &DesktopNotice::Failed, &window_, [this](const QString& reason) {
    const QString text = HostText(kHostTextNoticeFailed);
    window_.ShowText(reason.isEmpty() ? text : text + " (" + reason + ")");
  });
}

void Background::FollowTray() {
  QObject::connect(&tray_, &TrayIcon::Clicked, &window_, [this] {
    const bool isInSight = window_.isVisible() && !window_.isMinimized();
    isInSight ? window_.hide() : RaiseWindow(window_);
  });
  QObject::connect(&tray_, &TrayIcon::OpenWanted, &window_, [this] { RaiseWindow(window_); });
  QObject::connect(&tray_, &TrayIcon::RefreshWanted, &window_,
                   [this] { window_.SendToFrame(kMessageRefreshAll); });
  QObject::connect(&tray_, &TrayIcon::QuitWanted, &window_, &HostWindow::Quit);
  QObject::connect(&tray_, &TrayIcon::Gone, &window_, [this] {
    if (!window_.isVisible()) window_.showMinimized();
  });
}

// The session may end without another word.
void Background::FollowSession() {
  qApp->installEventFilter(this);
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, &window_, [this] {
    if (!SaveWindowGeometry(window_, registry_)) ReportError("Cannot remember the window's place.");
  });
}

// At the session's end the toolkit would close the window first, which may only hide it.
bool Background::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver != qApp || event->type() != QEvent::Quit) return false;
  window_.Quit();
  return true;
}

bool Background::HideToTray() {
  if (!KeepsRunning(registry_) || !tray_.IsThere()) return false;
  if (!registry_.ReadString(kHostKey, kValueTrayTold)) {
    tray_.Tell(HostText(kHostTextTrayTold));
    if (!registry_.WriteString(kHostKey, kValueTrayTold, "1")) ReportError("Cannot keep a choice.");
  }
  return true;
}

}  // namespace feedloom
