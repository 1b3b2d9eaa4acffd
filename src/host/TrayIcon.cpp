#include "host/TrayIcon.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <chrono>
#include <utility>

#include "host/HostTables.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr char kBusTray[] = "org.kde.StatusNotifierWatcher";
constexpr std::chrono::seconds kBetweenLooks(2);

bool IsTrayOnBus() {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  return bus.isConnected() && bus.interface()->isServiceRegistered(kBusTray).value();
}

// Three signs are as wide as the icon, and so lower than one or two.
void PaintCount(QPainter& painter, int size, int unread) {
  const QString text = unread > 99 ? QStringLiteral("99+") : QString::number(unread);
  QFont font = QApplication::font();
  font.setBold(true);
  font.setPixelSize(text.size() > 2 ? size / 2 : size * 5 / 8);
  painter.setFont(font);
  const QFontMetrics metrics(font);
  const int height = metrics.capHeight() + size / 5;
  const int width = std::min(size, std::max(height, metrics.horizontalAdvance(text) + size / 8));
  const QRect badge(size - width, size - height, width, height);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xb7, 0x1c, 0x1c));
  painter.drawRoundedRect(badge, height / 4.0, height / 4.0);
  painter.setPen(Qt::white);
  const int left = badge.center().x() + 1 - metrics.horizontalAdvance(text) / 2;
  painter.drawText(left, badge.bottom() + 1 - (height - metrics.capHeight()) / 2, text);
}

QPixmap Painted(const QIcon& base, int size, int unread) {
  QPixmap picture(size, size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  base.paint(&painter, picture.rect());
  if (unread > 0) PaintCount(painter, size, unread);
  return picture;
}

// A program that is not installed has no icon in the theme.
QIcon ProgramIcon() {
  return QIcon::fromTheme(QStringLiteral("halvix"),
                          QApplication::style()->standardIcon(QStyle::SP_FileDialogListView));
}

}  // namespace

QIcon WithCount(const QIcon& base, int unread) {
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64}) icon.addPixmap(Painted(base, size, unread));
  return icon;
}

TrayIcon::TrayIcon(const QString& caption)
    : caption_(caption), base_(ProgramIcon()), isThere_(QSystemTrayIcon::isSystemTrayAvailable()) {
  MakeMenu();
  ShowCount(0);
  connect(&icon_, &QSystemTrayIcon::activated, this,
          [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger) emit Clicked();
          });
  if (isThere_) icon_.show();
  WatchTray();
}

void TrayIcon::MakeMenu() {
  const auto add = [this](const char* textKey, void (TrayIcon::*wanted)()) {
    connect(menu_.addAction(HostText(textKey)), &QAction::triggered, this, wanted,
            Qt::QueuedConnection);
  };
  add(kHostTextTrayOpen, &TrayIcon::OpenWanted);
  add(kHostTextMenuRefreshAll, &TrayIcon::RefreshWanted);
  menu_.addSeparator();
  add(kHostTextMenuQuit, &TrayIcon::QuitWanted);
  icon_.setContextMenu(&menu_);
}

// The toolkit tells nobody that a tray comes or goes.
void TrayIcon::WatchTray() {
  if (isThere_ && IsTrayOnBus()) {
    auto* const watcher = new QDBusServiceWatcher(kBusTray, QDBusConnection::sessionBus(),
                                                  QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
              SetThere(!owner.isEmpty());
            });
    return;
  }
  connect(&look_, &QTimer::timeout, this,
          [this] { SetThere(QSystemTrayIcon::isSystemTrayAvailable()); });
  look_.start(kBetweenLooks);
}

void TrayIcon::SetThere(bool isThere) {
  if (std::exchange(isThere_, isThere) == isThere) return;
  ShowCount(unread_);
  icon_.setVisible(isThere);
  if (!isThere) emit Gone();
}

// The icon is painted in all its sizes: not where nobody sees it.
void TrayIcon::ShowCount(int unread) {
  unread_ = unread;
  if (!isThere_) return;
  icon_.setIcon(WithCount(base_, unread));
  const QString count =
      HostText(unread == 1 ? kHostTextUnreadPost : kHostTextUnreadPosts).arg(unread);
  icon_.setToolTip(unread > 0 ? caption_ + '\n' + count : caption_);
}

}  // namespace feedloom
