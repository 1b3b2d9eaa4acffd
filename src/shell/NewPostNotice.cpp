#include "shell/NewPostNotice.h"

#include <utility>

#include "ui/Desk.h"
#include "ui/notice/CRSS_AnnounceDlg.h"
#include "ui/notice/NoticeAnimation.h"

namespace feedloom {

void BringUp(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.raise();
  window.activateWindow();
}

// The announced total is set also when nothing is announced. Otherwise posts that arrive after the
// user has read others would be offset by those and never be announced.
CRSS_AnnounceDlg* NewPostNotice::Announce(int transparency, QWidget* parent) {
  SharedState& state = desk_.State();
  const int count =
      NewPostCount(state.unreadTotal, std::exchange(state.announcedTotal, state.unreadTotal));
  if (count <= 0) return nullptr;
  if (window_) window_->close();
  window_ = new CRSS_AnnounceDlg(desk_.GetSkin(), parent);
  window_->Announce(count, NoticeAlphaValue(transparency));
  return window_;
}

}  // namespace feedloom
