#include "host/ContentQueue.h"

#include <QApplication>
#include <QFile>
#include <QThread>
#include <QUrl>
#include <chrono>

#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "skin/Keys.h"
#include "threads/Messages.h"

namespace feedloom {
namespace {

constexpr std::chrono::milliseconds kPeriod(100);
constexpr int kMostShown = 60;  // characters of what was refused

// A dialog, a menu or a drag has an event loop of its own.
bool IsUserBusy() {
  return QApplication::activeModalWidget() != nullptr ||
         QApplication::activePopupWidget() != nullptr || QThread::currentThread()->loopLevel() > 1;
}

// A content as the user is told it: in short, and without a user name and a password.
QString NameOf(const std::string& content) {
  const QString text = QFile::decodeName(content.c_str());
  const QUrl url(text);
  const QString plain = url.userInfo().isEmpty() ? text : url.toString(QUrl::RemoveUserInfo);
  return plain.size() > kMostShown ? plain.left(kMostShown) + "…" : plain;
}

}  // namespace

ContentQueue::ContentQueue(HostWindow& window) : QObject(&window), window_(window) {
  look_.setInterval(kPeriod);
  connect(&look_, &QTimer::timeout, this, &ContentQueue::GiveNext);
}

void ContentQueue::Add(const HandOver& handOver) {
  omitted_ += handOver.omitted;
  for (const std::string& content : handOver.contents)
    waiting_.size() < kMostWaiting ? waiting_.push_back(content) : void(++omitted_);
  if (!waiting_.empty() || omitted_ > 0) look_.start();
}

void ContentQueue::GiveNext() {
  if (!window_.HasFrame() || IsUserBusy()) return;
  while (!waiting_.empty()) {
    const std::string content = std::move(waiting_.front());
    waiting_.pop_front();
    const auto address = reinterpret_cast<std::intptr_t>(&content);
    if (window_.SendToFrame(kMessageOpenContent, 0, address) != 0) return;
    if (refused_++ == 0) firstRefused_ = content;
  }
  Report();
}

void ContentQueue::Report() {
  look_.stop();
  QStringList texts;
  if (omitted_ > 0) texts << HostText(kHostTextContentsOmitted).arg(omitted_).arg(kMostWaiting);
  const QString name = NameOf(firstRefused_);
  if (refused_ == 1) texts << HostText(kHostTextContentRefused).arg(name);
  if (refused_ > 1) {
    texts << HostText(kHostTextContentsRefused).arg(QString::number(refused_ - 1), name);
  }
  if (!texts.isEmpty()) window_.ShowText(texts.join(' '));
  refused_ = omitted_ = 0;
}

}  // namespace feedloom
