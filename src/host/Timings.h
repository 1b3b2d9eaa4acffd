#pragma once

#include <QObject>

class QWidget;

namespace feedloom {

// From now on NoteTime speaks.
void BeginTimings();

// A line on the standard error output: how long ago the program was started, and the step that it
// has reached. Nothing without BeginTimings. Interface thread.
void NoteTime(const char* step);

// Notes each page that the module's `frame` has shown.
class PageTimings : public QObject {
  Q_OBJECT

 public:
  explicit PageTimings(QWidget& frame);

 private slots:
  void OnPageShown();
};

}  // namespace feedloom
