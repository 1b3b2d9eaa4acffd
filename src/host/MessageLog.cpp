#include "host/MessageLog.h"

namespace feedloom {

void MessageLog::Add(const QString& text, const QDateTime& time) {
  constexpr std::size_t kMost = 500;
  const QString line = text.simplified();
  if (line.isEmpty()) return;
  if (!messages_.empty() && messages_.front().text == line) {
    messages_.front().time = time;
    ++messages_.front().times;
  } else {
    messages_.push_front({time, line});
    if (messages_.size() > kMost) messages_.pop_back();
  }
  emit Changed();
}

void MessageLog::MarkFailure() {
  if (messages_.empty()) return;
  messages_.front().isFailure = true;
  emit Changed();
}

}  // namespace feedloom
