#include "host/DesktopNotice.h"

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QTimer>
#include <QVariantMap>
#include <utility>

#include "host/HostTables.h"
#include "host/NoticeText.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr char kDefaultAction[] = "default";
constexpr uchar kNormalUrgency = 1;
constexpr int kServersOwnTimeout = -1;

QDBusMessage CallOf(const char* method) {
  return QDBusMessage::createMethodCall(kService, kPath, kService, method);
}

// One argument of this signature; an invalid value from a failure or another answer.
QVariant ArgumentOf(const QDBusMessage& answer, const char* signature) {
  const bool isAnswer = answer.type() == QDBusMessage::ReplyMessage;
  return isAnswer && answer.signature() == signature ? answer.arguments().first() : QVariant();
}

// The category is one of ours, in the form that the standard has for those that it does not name.
QVariantMap Hints() {
  return {{"urgency", QVariant::fromValue(kNormalUrgency)},
          {"category", "x-feedloom.posts.arrived"},
          {"desktop-entry", "halvix"}};
}

}  // namespace

DesktopNotice::DesktopNotice(QDBusConnection bus, std::chrono::milliseconds patience)
    : bus_(std::move(bus)), patience_(patience) {
  bus_.connect(kService, kPath, kService, "ActivationToken", this, SLOT(OnToken(uint, QString)));
  bus_.connect(kService, kPath, kService, "ActionInvoked", this, SLOT(OnAction(uint, QString)));
  bus_.connect(kService, kPath, kService, "NotificationClosed", this, SLOT(OnClosed(uint, uint)));
}

DesktopNotice::~DesktopNotice() {
  if (id_ == 0) return;
  QDBusMessage close = CallOf("CloseNotification");
  close << id_;
  bus_.send(close);
}

void DesktopNotice::Announce(int posts, const QString& lines) {
  if (isBusy_) {
    waiting_ = News{posts, lines};
    return;
  }
  isBusy_ = true;
  AskWhetherInhibited({posts, lines});
}

// Without a bus the toolkit gives a call that never ends.
void DesktopNotice::Ask(const QDBusMessage& call,
                        const std::function<void(const QDBusMessage&)>& take) {
  if (!bus_.isConnected()) {
    const auto none = QDBusMessage::createError(QDBusError::Disconnected, "No session bus");
    return QTimer::singleShot(0, this, [take, none] { take(none); });
  }
  auto* const watcher =
      new QDBusPendingCallWatcher(bus_.asyncCall(call, static_cast<int>(patience_.count())), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, take] {
    watcher->deleteLater();
    take(watcher->reply());
  });
}

// A service without the property is not inhibited.
void DesktopNotice::AskWhetherInhibited(const News& news) {
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
  call << kService << "Inhibited";
  Ask(call, [this, news](const QDBusMessage& answer) {
    const auto value = ArgumentOf(answer, "v").value<QDBusVariant>().variant();
    value.toBool() ? End() : AskForCapabilities(news);
  });
}

void DesktopNotice::AskForCapabilities(const News& news) {
  Ask(CallOf("GetCapabilities"), [this, news](const QDBusMessage& answer) {
    Notify(news, ArgumentOf(answer, "as").toStringList());
  });
}

void DesktopNotice::Notify(const News& news, const QStringList& capabilities) {
  QStringList actions;
  if (capabilities.contains("actions")) actions << kDefaultAction << HostText(kHostTextTrayOpen);
  QDBusMessage call = CallOf("Notify");
  call << "Feedloom" << id_ << "halvix" << NoticeSummary(news.posts)
       << NoticeBody(news.lines, capabilities.contains("body-markup")) << actions << Hints()
       << kServersOwnTimeout;
  Ask(call, [this](const QDBusMessage& answer) { Take(answer); });
}

void DesktopNotice::Take(const QDBusMessage& answer) {
  id_ = ArgumentOf(answer, "u").toUInt();
  const bool hasFailed = id_ == 0;
  if (hasFailed && !isFailureTold_) emit Failed(answer.errorMessage());
  isFailureTold_ = hasFailed;
  End();
}

void DesktopNotice::End() {
  isBusy_ = false;
  if (const auto next = std::exchange(waiting_, {})) Announce(next->posts, next->lines);
}

// It comes before the action.
void DesktopNotice::OnToken(uint id, const QString& token) {
  if (id == id_) token_ = token;
}

void DesktopNotice::OnAction(uint id, const QString& action) {
  if (id_ != 0 && id == id_ && action == kDefaultAction) emit Clicked(std::exchange(token_, {}));
}

void DesktopNotice::OnClosed(uint id, uint /*reason*/) {
  if (id == id_) id_ = 0;
}

}  // namespace feedloom
