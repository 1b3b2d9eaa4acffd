#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <chrono>
#include <functional>
#include <optional>

namespace feedloom {

// Announces new posts through the desktop's notification service (org.freedesktop.Notifications,
// Desktop Notifications Specification 1.2), each time in place of the notification before. When the
// service says that it is inhibited, nothing is announced; otherwise not to disturb is its own
// affair. No call waits. Interface thread only.
class DesktopNotice : public QObject {
  Q_OBJECT

 public:
  // A call without an answer fails after `patience`.
  explicit DesktopNotice(QDBusConnection bus,
                         std::chrono::milliseconds patience = std::chrono::seconds(3));
  // Withdraws the notification, as nobody would hear of a click.
  ~DesktopNotice() override;
  DesktopNotice(const DesktopNotice&) = delete;
  DesktopNotice& operator=(const DesktopNotice&) = delete;

  // `posts` is the number of posts, `lines` as in kMessageNewPosts. While another announcement is
  // on its way this one waits, and only the last one that does.
  void Announce(int posts, const QString& lines);

 signals:
  // The user has clicked on the notification. The token is the desktop's leave to raise a window;
  // empty without one.
  void Clicked(const QString& activationToken);
  // An announcement has failed, the first one since the start or since one that did not. The reason
  // is the bus's; empty for an answer that makes no sense.
  void Failed(const QString& reason);

 private slots:
  void OnAction(uint id, const QString& action);
  void OnToken(uint id, const QString& token);
  void OnClosed(uint id, uint reason);

 private:
  struct News {
    int posts;
    QString lines;
  };

  void Ask(const QDBusMessage& call, const std::function<void(const QDBusMessage&)>& take);
  void AskWhetherInhibited(const News& news);
  void AskForCapabilities(const News& news);
  void Notify(const News& news, const QStringList& capabilities);
  void Take(const QDBusMessage& answer);
  void End();

  QDBusConnection bus_;
  const std::chrono::milliseconds patience_;
  uint id_ = 0;  // of the notification on display; 0 without one
  QString token_;
  bool isBusy_ = false;
  bool isFailureTold_ = false;
  std::optional<News> waiting_;
};

}  // namespace feedloom
