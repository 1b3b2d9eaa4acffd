#pragma once

#include <QSplitter>

namespace feedloom {

// A splitter whose handles take the keyboard when they are given it, and show that: the arrow keys
// move the handle, Home and End to where it can go at most, Enter and Escape let go of it.
class VxSplitter : public QSplitter {
  Q_OBJECT

 public:
  using QSplitter::QSplitter;

 signals:
  // The keyboard is to go back where it came from.
  void HandleLeft();

 protected:
  QSplitterHandle* createHandle() override;
};

}  // namespace feedloom
