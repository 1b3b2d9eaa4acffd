// The keys that lead the keyboard round the frame.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace feedloom {

class VxSplitter;

// Where the Tab key leads from here within `frame`; null when the toolkit is to decide. It would go
// from a pane past the next one's toolbar, as the pane hands the keyboard on to its view.
QWidget* NextStop(const QWidget& frame);

// F6 and Shift+F6 go from pane to pane, F8 to the dividers, one after the other, from where Enter
// and Escape lead back. Shift+F10 opens the menu where the menu key does; the browser has it from
// its engine.
class FrameKeys : public QObject {
  Q_OBJECT

 public:
  // The panes from first to last; all belong to `frame`, as the object does.
  FrameKeys(QWidget& frame, std::vector<QWidget*> panes, std::vector<VxSplitter*> splitters);

  void AddMenuKey(QWidget& pane);

 private:
  void GoToPane(int step);
  void GoToDivider();
  void GoBack();

  const std::vector<QWidget*> panes_;
  const std::vector<VxSplitter*> splitters_;
  QPointer<QWidget> before_;  // what had the keyboard before a divider
};

}  // namespace feedloom
