#include "host/Host.h"

#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTimer>
#include <optional>

#include "host/CommandLine.h"
#include "host/Complaint.h"
#include "host/DesktopLook.h"
#include "host/EndSignals.h"
#include "host/FirstPaint.h"
#include "host/Graphics.h"
#include "host/HostLook.h"
#include "host/HostProfile.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/LoadedModule.h"
#include "host/ModuleLink.h"
#include "host/Screenshot.h"
#include "host/Timings.h"
#include "host/WindowPlace.h"
#include "profile/HostTexts.h"
#include "profile/SharePaths.h"
#include "skin/HostConfig.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr int kFailure = 1;
constexpr int kShowAnew = 1000;  // of the event loop, not of the program

// What has to be done before there is an application object.
Failure Prepare(const HostOptions& options, HostProfile& profile, LoadedModule& module) {
  if (!HasDisplay() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    return "No display: neither DISPLAY nor WAYLAND_DISPLAY is set.";
  }
  if (auto failure = OpenProfile(profile, options)) return failure;
  if (auto failure = LinkModule(profile.paths.module, InstalledModule())) return failure;
  // The browser engine's sandbox cannot work for root, and keeps on protecting everybody else.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  NoteTime("profile opened");
  return module.Load(profile.paths.module);
}

int Refuse(const HostOptions& options, const std::string& reason) {
  Complain(reason);
  if (HasDisplay() && !options.screenshot) ComplainInBox(reason);
  return kFailure;
}

// How the window ends: on the user's wish it remembers its place; a picture was still wanted.
void LeaveOnClose(HostWindow& window, const Registry& registry, bool wantsPicture) {
  QObject::connect(&window, &HostWindow::Closing, &window, [&window, registry, wantsPicture] {
    if (!wantsPicture && !RememberPlace(window, registry)) {
      Complain("Cannot remember the window's place.");
    }
    QCoreApplication::exit(wantsPicture ? kFailure : 0);
  });
}

// Writes down what the user has chosen, and ends the event loop for the profile to be shown so.
void ShowAnewOnChoice(HostWindow& window, const HostProfile& profile) {
  QObject::connect(&window, &HostWindow::LooksChosen, &window, [&](const HostLooks& looks) {
    const Registry registry(profile.paths.registry);
    Failure failure = SetLanguage(profile.paths, looks.language);
    // A skin of the user's own stays when the language changes.
    if (!failure && looks.skin != SkinName(HostConfig(registry))) {
      failure = ChooseSkin(profile.paths.dir, ShareDir(), looks.skin);
    }
    if (failure) {
      QMessageBox::warning(&window, window.windowTitle(), QString::fromStdString(*failure));
    }
    if (!RememberPlace(window, registry)) {
      Complain("Cannot remember the window's place.");
    }
    QCoreApplication::exit(kShowAnew);
  });
}

// A window with the module's frame in it, from its first paint to its end.
class Show {
 public:
  Show(const HostOptions& options, const LoadedModule& module, HostWindow& window, bool refreshes)
      : options_(options), module_(module), window_(window), refreshes_(refreshes) {}
  ~Show() {
    if (frame_ != nullptr) module_.destroyBtn();
  }
  Show(const Show&) = delete;
  Show& operator=(const Show&) = delete;

  // The window is on screen before the module fills it; the exit status of the event loop.
  int Run() {
    OnFirstPaint(window_, [this] {
      NoteTime("window painted");
      if (auto failure = Fill()) QCoreApplication::exit(Refuse(options_, *failure));
    });
    window_.show();
    NoteTime("window shown");
    return QCoreApplication::exec();
  }

 private:
  Failure Fill() {
    frame_ = module_.create(HostGetText, HostGetSkinValue, window_.ModuleParent());
    if (frame_ == nullptr) return "The module cannot make its window.";
    NoteTime("module's frame made");
    window_.SetFrame(frame_);
    timings_.emplace(*frame_);
    if (refreshes_) {
      QTimer::singleShot(0, &window_, [this] { window_.SendToFrame(kMessageRefreshAll); });
    }
    if (!options_.screenshot) return {};
    picture_.emplace(window_, *frame_, QFile::decodeName(options_.screenshot->c_str()));
    return picture_->Start();
  }

  const HostOptions& options_;
  const LoadedModule& module_;
  HostWindow& window_;
  const bool refreshes_;
  QWidget* frame_ = nullptr;  // the module's
  std::optional<PageTimings> timings_;
  std::optional<Screenshot> picture_;
};

// The profile as its registry has it now, until the user leaves or wants it otherwise (kShowAnew).
int ShowProfile(const HostOptions& options, const HostProfile& profile, const LoadedModule& module,
                const EndSignals& endSignals, bool refreshes) {
  const Registry registry(profile.paths.registry);
  const HostConfig config(registry);
  const HostLookup tables = ReadHostTexts(config);
  SetHostTables(tables, config.GetCodePage());
  HostLook look(Skin(tables, config));
  HostWindow window(FromModuleText(config.GetAppTitle()),
                    {SkinName(config), config.GetHostLanguage()});
  QObject::connect(&endSignals, &EndSignals::Requested, &window, &QWidget::close);
  if (options.screenshot) {
    window.resize(kFirstWidth, kFirstHeight);
  } else {
    PlaceWindow(window, registry);
  }
  LeaveOnClose(window, registry, options.screenshot.has_value());
  ShowAnewOnChoice(window, profile);
  NoteTime("window made");
  return Show(options, module, window, refreshes).Run();
}

void FollowDesktop(const HostProfile& profile) {
  if (!PrefersDark(QGuiApplication::palette())) return;
  if (auto failure = ChooseSkin(profile.paths.dir, ShareDir(), kDarkSkin)) Complain(*failure);
}

int RunApplication(char* programName, const HostOptions& options, const HostProfile& profile,
                   const LoadedModule& module) {
  int argc = 1;
  char* argv[] = {programName, nullptr};
  NoteTime("module loaded");
  LeaveOutSlowGraphics();
  QApplication application(argc, argv);
  NoteTime("application object made");
  QGuiApplication::setDesktopFileName(QStringLiteral("halvix"));
  QApplication::setQuitOnLastWindowClosed(false);  // the main window alone decides

  if (profile.isNew) FollowDesktop(profile);
  const EndSignals endSignals;
  const bool refreshes = profile.isNew && !options.screenshot;
  int status = ShowProfile(options, profile, module, endSignals, refreshes);
  while (status == kShowAnew) status = ShowProfile(options, profile, module, endSignals, false);
  return status;
}

}  // namespace

int RunHost(int argc, char** argv) {
  HostOptions options;
  if (const auto status = ReadCommandLine(argc, argv, options)) return *status;
  if (options.timings) BeginTimings();
  NoteTime("arguments read");
  HostProfile profile(ProfileDir(options));
  LoadedModule module;
  if (auto failure = Prepare(options, profile, module)) return Refuse(options, *failure);
  if (profile.isNew) Complain("Made a new profile in " + profile.paths.dir);
  return RunApplication(argv[0], options, profile, module);
}

}  // namespace feedloom
