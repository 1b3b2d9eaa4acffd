// The module's entry points: its constructor and its two exported functions.
#include <QApplication>
#include <QPointer>
#include <exception>

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
    theFrame = new CRSS_MainFrame({HostGetText, HostGetSkinValue}, FindModulePaths(),
                                  theLiveSettings, parent);
  } catch (const std::exception&) {
    return nullptr;
  }
  theFrame->show();
  return theFrame;
}

void DestroyBtn() {
  if (feedloom::theFrame) feedloom::theFrame->EndRefresh();
  delete feedloom::theFrame.data();
}
