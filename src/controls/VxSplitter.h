#pragma once

#include <QSplitter>

namespace feedloom {

// A splitter with keyboard support. A handle with the focus is highlighted. The arrow keys move it,
// Home and End move it as far as possible, Enter and Escape leave it. Callers set the focus; the
// Tab key does not stop at handles.
class VxSplitter : public QSplitter {
  Q_OBJECT

 public:
  using QSplitter::QSplitter;

 signals:
  // The user wants the focus back where it came from.
  void HandleLeft();

 protected:
  QSplitterHandle* createHandle() override;
};

}  // namespace feedloom
