#pragma once

#include <QObject>

class QWidget;

namespace feedloom {

// Lets LogTiming print from now on.
void EnableTimings();

// Prints a line to stderr: the milliseconds since the process was started, and `step`. Does nothing
// before EnableTimings. Interface thread.
void LogTiming(const char* step);

// Logs each page that the module's `frame` has shown.
class PageTimings : public QObject {
  Q_OBJECT

 public:
  explicit PageTimings(QWidget& frame);

 private slots:
  void OnPageShown();
};

}  // namespace feedloom
