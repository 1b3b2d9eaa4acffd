#pragma once

#include "files/Registry.h"
#include "host/DesktopNotice.h"
#include "host/TrayIcon.h"

namespace feedloom {

class HostWindow;

// What the window is and says while it is not in sight: the tray's icon, what closing means, the
// desktop's notifications, and the end of the session. Interface thread only.
class Background : public QObject {
  Q_OBJECT

 public:
  // `window` must outlive the object. The choices are read in `registry` when they count.
  Background(HostWindow& window, const Registry& registry);

  // In place of showing the window: in a desktop without a tray it is shown minimised.
  void StartHidden();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void FollowModule();
  void FollowTray();
  void FollowSession();
  bool HideToTray();

  HostWindow& window_;
  const Registry registry_;
  TrayIcon tray_;
  DesktopNotice notice_;
};

}  // namespace feedloom
