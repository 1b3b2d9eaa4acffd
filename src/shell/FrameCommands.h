// The commands that keys give to the window's panes wherever the keyboard is.
#pragma once

#include <QKeyEvent>
#include <QObject>

namespace feedloom {

class CRSS_LeftContainer;
class CRSS_RightBottomContainer;
class CRSS_RightTopContainer;
class Desk;

// Whether the widget with the keyboard takes this key itself: text that is typed, also into a web
// page, and a press of the space bar on a button. To be asked for a QEvent::ShortcutOverride.
bool IsForFocus(const QKeyEvent& key);

// Interface thread only.
class FrameCommands : public QObject {
  Q_OBJECT

 public:
  struct Panes {
    CRSS_LeftContainer& left;
    CRSS_RightTopContainer& list;
    CRSS_RightBottomContainer& page;
  };

  // `frame`, an ancestor of the panes, owns the object. `desk` and the panes outlive it.
  FrameCommands(QWidget& frame, const Desk& desk, const Panes& panes);

 private:
  void GoToUnread(bool forward);
  void ScrollOn();
  void Delete();

  const Panes panes_;
};

}  // namespace feedloom
