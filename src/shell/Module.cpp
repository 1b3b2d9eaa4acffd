// The module's entry points: its constructor and its two exported functions.
#include <QApplication>
#include <QPointer>
#include <memory>

#include "shell/CRSS_MainFrame.h"
#include "shell/Feedloom.h"
#include "shell/ModulePaths.h"
#include "ui/browser/CRSS_RightBottomContainer.h"

namespace feedloom {
namespace {

// The module's state: its frame, null while there is none, and the settings in effect, which stay
// when the host replaces the frame.
QPointer<CRSS_MainFrame> theFrame;
Settings theLiveSettings;

__attribute__((constructor)) void OnLoad() { PrepareBrowser(); }

}  // namespace
}  // namespace feedloom

QWidget* Create(feedloom::HostCallback HostGetText, feedloom::HostCallback HostGetSkinValue,
                QWidget* parent) {
  using namespace feedloom;
  if (parent == nullptr || qApp == nullptr || theFrame) return nullptr;
  try {
    auto frame = std::make_unique<CRSS_MainFrame>(HostLookup{HostGetText, HostGetSkinValue},
                                                  FindModulePaths(), theLiveSettings, parent);
    frame->show();
    return theFrame = frame.release();
  } catch (...) {  // whatever a host's function throws
    return nullptr;
  }
}

void DestroyBtn() {
  if (feedloom::theFrame) feedloom::theFrame->EndRefresh();
  delete feedloom::theFrame.data();
}
