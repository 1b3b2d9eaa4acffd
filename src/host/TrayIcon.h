#pragma once

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

namespace feedloom {

// `base` with the number of unread posts on it, as "99+" when there are more, in the sizes of trays
// from 16 to 64 pixels. Without unread posts it is `base` alone.
QIcon WithCount(const QIcon& base, int unread);

// The program's icon in the desktop's tray, also in one that comes later. Texts are the host's. A
// tray on the session bus (StatusNotifierItem) is used when it is there at the start, else one of
// the X Window System (System Tray Protocol). Interface thread only.
class TrayIcon : public QObject {
  Q_OBJECT

 public:
  explicit TrayIcon(const QString& caption);

  // Whether the desktop has a tray now.
  bool IsThere() const { return isThere_; }
  // Shows the number on the icon and in its tip.
  void ShowCount(int unread);
  // Shows a text beside the icon for a while.
  void Tell(const QString& text) { icon_.showMessage(caption_, text, icon_.icon()); }

 signals:
  void Clicked();
  void OpenWanted();
  void RefreshWanted();
  void QuitWanted();
  void Gone();  // the tray has died

 private:
  void MakeMenu();
  void WatchTray();
  void SetThere(bool isThere);

  const QString caption_;
  const QIcon base_;
  QMenu menu_;
  QSystemTrayIcon icon_;
  QTimer look_;  // runs while the tray is one that nobody tells of
  bool isThere_;
  int unread_ = 0;
};

}  // namespace feedloom
