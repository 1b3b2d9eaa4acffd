#include "ui/browser/PageQuestions.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace feedloom {
namespace {

constexpr qsizetype kLongestHost = 60;
constexpr qsizetype kLongestLine = 80;

// Changes other keys, or says no.
bool IsSilent(int key) {
  switch (key) {
    case Qt::Key_Escape:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
      return true;
    default:
      return false;
  }
}

bool IsSamePlace(const QUrl& a, const QUrl& b) {
  return a.adjusted(QUrl::RemoveFragment) == b.adjusted(QUrl::RemoveFragment);
}

}  // namespace

bool IsGesture(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
      return true;
    case QEvent::KeyPress:
      return !IsSilent(static_cast<const QKeyEvent&>(event).key());
    default:
      return false;
  }
}

bool IsTab(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

bool IsLeaveQuestion(const QString& text) {
  return text == QCoreApplication::translate("QWebEnginePage",
                                             "Are you sure you want to leave this page? Changes "
                                             "that you made may not be saved.");
}

DownloadVerdict JudgeDownload(const PageLoad& load, const QUrl& address) {
  const bool isGiven = !load.given.isEmpty() && IsSamePlace(load.given, address);
  if (isGiven || load.hasGesture) return DownloadVerdict::Ask;
  return load.isRefusalTold ? DownloadVerdict::Refuse : DownloadVerdict::Tell;
}

PageLoad Judged(PageLoad load, DownloadVerdict verdict) {
  if (verdict != DownloadVerdict::Ask) {
    load.isRefusalTold = true;
    load.reportsStatus = false;
    return load;
  }
  load.given.clear();
  load.hasGesture = false;
  return load;
}

bool MayAskLogin(const PageLoad& load, const QUrl& address, const LoginQuestion& question) {
  if (load.given.isEmpty() || load.loginHosts.contains(question.host)) return false;
  // A proxy is asked for a host before it is asked for a page.
  return question.isProxy ? load.given.host() == address.host() : IsSamePlace(load.given, address);
}

PageLoad LoginAsked(PageLoad load, const LoginQuestion& question) {
  load.loginHosts += question.host;
  load.hasGesture = false;
  return load;
}

QString HostOf(const QUrl& address) {
  if (address.scheme() == QLatin1String("blob")) return HostOf(QUrl(address.path()));
  const QString port = address.port() < 0 ? QString() : QStringLiteral(":%1").arg(address.port());
  const QString host = address.host(QUrl::FullyEncoded) + port;
  return host.size() <= kLongestHost ? host : QChar(0x2026) + host.right(kLongestHost);
}

QString OneLine(const QString& text) {
  QString line = text.simplified();
  line.removeIf([](QChar c) { return !c.isPrint() || c.category() == QChar::Other_Format; });
  return line.size() <= kLongestLine ? line : line.left(kLongestLine) + QChar(0x2026);
}

}  // namespace feedloom
