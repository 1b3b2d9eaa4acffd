// The module's entry points: its constructor and its two exported functions.
#include <QApplication>
#include <QPointer>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "shell/CRSS_MainFrame.h"
#include "shell/Feedloom.h"
#include "shell/ModulePaths.h"
#include "ui/ViewMemory.h"
#include "ui/browser/CRSS_RightBottomContainer.h"

namespace feedloom {
namespace {

// The module's state: its frame, null while there is none, and what stays when the host replaces
// the frame: the settings in effect, and what the window shows.
QPointer<CRSS_MainFrame> theFrame;
Settings theLiveSettings;
std::optional<KeptView> theKeptView;
std::filesystem::path theProfile;

// The links on the way to the profile may lead elsewhere than for the frame before.
void ForgetOtherProfile(const ModulePaths& paths) {
  std::error_code unknown;
  const auto profile = std::filesystem::weakly_canonical(paths.registry, unknown);
  if (std::exchange(theProfile, profile) != profile) theKeptView.reset();
}

__attribute__((constructor)) void OnLoad() { PrepareBrowser(); }

}  // namespace
}  // namespace feedloom

QWidget* Create(feedloom::HostCallback HostGetText, feedloom::HostCallback HostGetSkinValue,
                QWidget* parent) {
  using namespace feedloom;
  if (parent == nullptr || qApp == nullptr || theFrame) return nullptr;
  const ModulePaths paths = FindModulePaths();
  ForgetOtherProfile(paths);
  try {
    auto frame = std::make_unique<CRSS_MainFrame>(HostLookup{HostGetText, HostGetSkinValue}, paths,
                                                  theLiveSettings, theKeptView, parent);
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
