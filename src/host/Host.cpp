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
#include "host/HostLook.h"
#include "host/HostProfile.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/LoadedModule.h"
#include "host/ModuleLink.h"
#include "host/Screenshot.h"
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

// Runs the window with the module's `frame` in it.
int RunWindow(HostWindow& window, QWidget& frame, const HostOptions& options,
              const HostProfile& profile) {
  const Registry registry(profile.paths.registry);
  std::optional<Screenshot> picture;
  if (options.screenshot) {
    picture.emplace(window, frame, QFile::decodeName(options.screenshot->c_str()));
    if (auto failure = picture->Start()) return Refuse(options, *failure);
    window.resize(kFirstWidth, kFirstHeight);
  } else {
    PlaceWindow(window, registry);
  }
  LeaveOnClose(window, registry, options.screenshot.has_value());
  ShowAnewOnChoice(window, profile);
  window.show();
  return QCoreApplication::exec();
}

// The profile as its registry has it now, until the user leaves or wants it otherwise (kShowAnew).
int ShowProfile(const HostOptions& options, const HostProfile& profile, const LoadedModule& module,
                const EndSignals& endSignals, bool refreshes) {
  const HostConfig config{Registry(profile.paths.registry)};
  const HostLookup tables = ReadHostTexts(config);
  SetHostTables(tables, config.GetCodePage());
  HostLook look(Skin(tables, config));
  HostWindow window(FromModuleText(config.GetAppTitle()),
                    {SkinName(config), config.GetHostLanguage()});
  QObject::connect(&endSignals, &EndSignals::Requested, &window, &QWidget::close);

  QWidget* frame = module.create(HostGetText, HostGetSkinValue, window.ModuleParent());
  if (frame == nullptr) return Refuse(options, "The module cannot make its window.");
  window.SetFrame(frame);
  if (refreshes) {
    QTimer::singleShot(0, &window, [&window] { window.SendToFrame(kMessageRefreshAll); });
  }
  const int status = RunWindow(window, *frame, options, profile);
  module.destroyBtn();
  return status;
}

void FollowDesktop(const HostProfile& profile) {
  if (!PrefersDark(QGuiApplication::palette())) return;
  if (auto failure = ChooseSkin(profile.paths.dir, ShareDir(), kDarkSkin)) Complain(*failure);
}

int RunApplication(char* programName, const HostOptions& options, const HostProfile& profile,
                   const LoadedModule& module) {
  int argc = 1;
  char* argv[] = {programName, nullptr};
  QApplication application(argc, argv);
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
  HostProfile profile(ProfileDir(options));
  LoadedModule module;
  if (auto failure = Prepare(options, profile, module)) return Refuse(options, *failure);
  if (profile.isNew) Complain("Made a new profile in " + profile.paths.dir);
  return RunApplication(argv[0], options, profile, module);
}

}  // namespace feedloom
