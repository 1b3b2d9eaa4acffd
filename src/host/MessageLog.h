#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <deque>

namespace feedloom {

struct LoggedMessage {
  QDateTime time;  // of the last time that it was said
  QString text;
  int times = 1;  // one after the other
  bool isFailure = false;
};

// What the status bar has said, the newest first and 500 at most. Interface thread.
class MessageLog : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // An empty text is no message.
  void Add(const QString& text, const QDateTime& time = QDateTime::currentDateTime());
  // The newest message tells of a failure.
  void MarkFailure();
  const std::deque<LoggedMessage>& Messages() const { return messages_; }

 signals:
  void Changed();

 private:
  std::deque<LoggedMessage> messages_;
};

}  // namespace feedloom
