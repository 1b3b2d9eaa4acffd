// Keyboard navigation between the frame's panes and dividers.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace feedloom {

class VxSplitter;

// Returns the widget of `frame` that the Tab key moves the focus to; null when the toolkit is to
// decide. The toolkit alone would skip a pane's toolbar, because the pane's focus proxy is its
// view.
QWidget* NextTabStop(const QWidget& frame);

// F6 and Shift+F6 move the focus to the next or previous pane. F8 moves it to the dividers, one
// after the other; Enter and Escape move it back. Interface thread only.
class FrameKeys : public QObject {
  Q_OBJECT

 public:
  // `panes` in the order of F6, `splitters` in the order of F8: all children of `frame`, which owns
  // this object, too.
  FrameKeys(QWidget& frame, std::vector<QWidget*> panes, std::vector<VxSplitter*> splitters);

  // Makes Shift+F10 open the context menu in `pane`, as the menu key does. The browser's engine has
  // this key of its own.
  void AddMenuKey(QWidget& pane);

 private:
  void GoToPane(int step);
  void GoToDivider();
  void GoBack();

  const std::vector<QWidget*> panes_;
  const std::vector<VxSplitter*> splitters_;
  QPointer<QWidget> before_;  // had the focus before a divider got it
};

}  // namespace feedloom
