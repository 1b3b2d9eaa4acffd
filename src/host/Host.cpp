#include "host/Host.h"

#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTimer>
#include <optional>

#include "host/AboutBox.h"
#include "host/ApplicationStyle.h"
#include "host/Background.h"
#include "host/BackupDialogs.h"
#include "host/CommandLine.h"
#include "host/DamageDialog.h"
#include "host/DesktopTheme.h"
#include "host/ErrorReport.h"
#include "host/FirstPaint.h"
#include "host/Graphics.h"
#include "host/HostProfile.h"
#include "host/HostSwitches.h"
#include "host/HostTables.h"
#include "host/HostWindow.h"
#include "host/Instance.h"
#include "host/LoadedModule.h"
#include "host/ModuleLink.h"
#include "host/NetworkState.h"
#include "host/OlderModeNotice.h"
#include "host/RefreshClock.h"
#include "host/Refusal.h"
#include "host/Screenshot.h"
#include "host/SecondStart.h"
#include "host/TerminationSignals.h"
#include "host/Timings.h"
#include "host/WindowGeometry.h"
#include "profile/DailyCopies.h"
#include "profile/DatabaseRepair.h"
#include "profile/HostTexts.h"
#include "profile/ProfileBackup.h"
#include "profile/SharePaths.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr int kFailure = 1;
constexpr int kRestartWindow = 1000;  // a status of the event loop, never of the program

// Does what must come before the application object: opens the profile and loads the module.
Failure Prepare(const HostOptions& options, HostProfile& profile, LoadedModule& module) {
  if (!HasDisplay() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    return "No display: neither DISPLAY nor WAYLAND_DISPLAY is set.";
  }
  if (auto failure = OpenProfile(profile, options)) return failure;
  if (auto failure = LinkModule(profile.paths.module, InstalledModule())) return failure;
  // The browser engine refuses to start its sandbox as root.
  if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  LogTiming("profile opened");
  return module.Load(profile.paths.module);
}

int Refuse(const HostOptions& options, const HostProfile& profile, const Refusal& refusal) {
  ReportError(refusal.told);
  if (HasDisplay() && !options.screenshot) ShowErrorBox(refusal.shown, profile.paths.registry);
  return kFailure;
}

// Ends the event loop when the window closes. The window's geometry is saved first, unless a
// picture was still to be taken (`wantsPicture`), which is a failure.
void QuitOnClose(HostWindow& window, const Registry& registry, bool wantsPicture) {
  QObject::connect(&window, &HostWindow::Closing, &window, [&window, registry, wantsPicture] {
    if (!wantsPicture && !SaveWindowGeometry(window, registry)) {
      ReportError("Cannot remember the window's place.");
    }
    QCoreApplication::exit(wantsPicture ? kFailure : 0);
  });
}

// Stores the skin and language that the user has chosen, and ends the event loop so that the window
// is made again with them.
void RestartOnAppearanceChoice(HostWindow& window, const HostProfile& profile) {
  QObject::connect(
      &window, &HostWindow::AppearanceChosen, &window, [&](const Appearance& appearance) {
        const Registry registry(profile.paths.registry);
        Failure failure = SetLanguage(profile.paths, appearance.language);
        // When only the language changes, a skin from outside the shared files is kept.
        if (!failure && appearance.skin != SkinName(HostConfig(registry))) {
          failure = ChooseSkin(profile.paths.dir, ShareDir(), appearance.skin);
        }
        if (failure) {
          QMessageBox::warning(&window, window.Caption(), QString::fromStdString(*failure));
        }
        if (!SaveWindowGeometry(window, registry)) {
          ReportError("Cannot remember the window's place.");
        }
        QCoreApplication::exit(kRestartWindow);
      });
}

void KeepSwitches(HostWindow& window, const Registry& registry) {
  QObject::connect(&window, &HostWindow::SwitchTurned, &window,
                   [&window, registry](const HostSwitch& which, bool isOn) {
                     if (!which.turn(registry, isOn)) {
                       ReportError("Cannot keep a choice of the view menu.");
                       window.ShowText(HostText(kHostTextChoiceNotKept));
                     }
                     if (which.concernsModule) window.SendToFrame(kMessageViewChanged);
                   });
}

void KeepListPlace(HostWindow& window, const Registry& registry) {
  QObject::connect(
      &window, &HostWindow::ListPlaceChosen, &window, [&window, registry](ListPlace place) {
        const char* const value = place == ListPlace::Beside ? kListBeside : kListAbove;
        if (!registry.WriteString(kHostKey, kValueListPlace, value)) {
          ReportError("Cannot remember where the list stands.");
        }
        window.SendToFrame(kMessageViewChanged);
      });
}

void ServeMenu(HostWindow& window, const HostProfile& profile) {
  QObject::connect(&window, &HostWindow::BackupWanted, &window,
                   [&] { BackUp(window, profile.paths); });
  QObject::connect(&window, &HostWindow::AboutWanted, &window,
                   [&] { ShowAbout(window, profile.paths); });
  QObject::connect(&window, &HostWindow::RestoreWanted, &window, [&] {
    Restore(window, profile.paths, [] { QCoreApplication::exit(kRestartWindow); });
  });
}

// What the view menu shows at first.
ViewChoices StoredChoices(const Registry& registry) {
  ViewChoices choices{.listPlace = HostConfig(registry).GetListPlace(), .on = {}};
  for (const HostSwitch& one : HostSwitches())
    if (one.isOn(registry)) choices.on.push_back(&one);
  return choices;
}

// Runs the event loop of a window with the module's frame in it.
class Show {
 public:
  Show(const HostOptions& options, const HostProfile& profile, const LoadedModule& module,
       HostWindow& window, bool refreshes)
      : options_(options),
        profile_(profile),
        module_(module),
        window_(window),
        clock_(Registry(profile.paths.registry), SystemClock(), IsOnline,
               [&window] { window.SendToFrame(kMessageRefreshDue); }),
        refreshes_(refreshes) {}
  ~Show() {
    if (frame_ == nullptr) return;
    KeepDailyCopy(profile_.paths);  // the module is about to replace the last copy
    module_.destroyBtn();
  }
  Show(const Show&) = delete;
  Show& operator=(const Show&) = delete;

  // Shows the window, lets the module fill it after its first paint, and returns the exit status of
  // the event loop.
  int Run() {
    OnFirstPaint(window_, [this] {
      LogTiming("window painted");
      FillOrEnd();
    });
    window_.show();
    LogTiming("window shown");
    return QCoreApplication::exec();
  }

  // As Run, for a window that is not in sight.
  int RunHidden() {
    QTimer::singleShot(0, &window_, [this] { FillOrEnd(); });
    return QCoreApplication::exec();
  }

 private:
  void FillOrEnd() {
    if (auto failure = Fill()) {
      QCoreApplication::exit(Refuse(options_, profile_, {*failure, *failure}));
    }
  }

  Failure Fill() {
    frame_ = module_.create(HostGetText, HostGetSkinValue, window_.ModuleParent());
    if (frame_ == nullptr) return "The module cannot make its window.";
    LogTiming("module's frame made");
    window_.SetFrame(frame_);
    timings_.emplace(*frame_);
    if (refreshes_) {
      QTimer::singleShot(0, &window_, [this] { window_.SendToFrame(kMessageRefreshAll); });
    }
    if (!options_.screenshot) {
      clock_.Start();
      TellOlderMode(window_, profile_);
      return {};
    }
    picture_.emplace(window_, *frame_, QFile::decodeName(options_.screenshot->c_str()));
    return picture_->Start();
  }

  const HostOptions& options_;
  const HostProfile& profile_;
  const LoadedModule& module_;
  HostWindow& window_;
  RefreshClock clock_;
  const bool refreshes_;
  QWidget* frame_ = nullptr;  // the module's
  std::optional<PageTimings> timings_;
  std::optional<Screenshot> picture_;
};

// Shows the profile with its registry's current values. Returns the exit status, or kRestartWindow
// when the user has chosen another skin or language.
int ShowProfile(const HostOptions& options, const HostProfile& profile, const LoadedModule& module,
                const TerminationSignals& terminationSignals, Instance& instance, bool refreshes) {
  const Registry registry(profile.paths.registry);
  const HostConfig config(registry);
  const HostLookup tables = ReadHostTexts(config, profile.paths.texts);
  SetHostTables(tables, config.GetCodePage());
  ApplicationStyle look(Skin(tables, config));
  HostWindow window(FromModuleText(config.GetAppTitle()),
                    {SkinName(config), config.GetHostLanguage()}, StoredChoices(registry));
  QObject::connect(&terminationSignals, &TerminationSignals::Requested, &window, &HostWindow::Quit);
  if (options.screenshot) {
    window.resize(kInitialWidth, kInitialHeight);
  } else {
    RestoreWindowGeometry(window, registry);
  }
  QuitOnClose(window, registry, options.screenshot.has_value());
  RestartOnAppearanceChoice(window, profile);
  KeepSwitches(window, registry);
  KeepListPlace(window, registry);
  ServeMenu(window, profile);
  instance.Serve(window);
  std::optional<Background> background;
  if (!options.screenshot) background.emplace(window, registry);
  LogTiming("window made");
  Show show(options, profile, module, window, refreshes);
  if (!background || !options.isHidden) return show.Run();
  background->StartHidden();
  return show.RunHidden();
}

void FollowDesktopTheme(const HostProfile& profile) {
  if (!PrefersDark(QGuiApplication::palette())) return;
  if (auto failure = ChooseSkin(profile.paths.dir, ShareDir(), kDarkSkin)) ReportError(*failure);
}

int RunApplication(char* programName, HostOptions options, const HostProfile& profile,
                   const LoadedModule& module, HandOver first) {
  int argc = 1;
  char* argv[] = {programName, nullptr};
  LogTiming("module loaded");
  DisableSoftwareOpenGl();
  QApplication application(argc, argv);
  LogTiming("application object made");
  QGuiApplication::setDesktopFileName(QStringLiteral("halvix"));
  QApplication::setQuitOnLastWindowClosed(false);  // QuitOnClose ends the event loop

  if (profile.isNew) FollowDesktopTheme(profile);
  const TerminationSignals terminationSignals;
  Instance instance(SocketPathsOf(profile.paths), std::move(first));
  const bool refreshes = profile.isNew && !options.screenshot;
  int status = ShowProfile(options, profile, module, terminationSignals, instance, refreshes);
  options.isHidden = false;
  while (status == kRestartWindow) {
    if (const Failure failure = CompleteRestore(profile.paths)) ReportError(*failure);
    status = ShowProfile(options, profile, module, terminationSignals, instance, false);
  }
  return status;
}

bool CanBeRepaired(const HostOptions& options, const HostProfile& profile) {
  return HasDisplay() && !options.screenshot && ProfileExists(profile.paths) &&
         Registry(profile.paths.registry).IsReadable() && NeedsRepair(profile.paths);
}

// The window has to begin in a process that had no application object yet.
int RepairAndStartAgain(char** argv, HostProfile& profile) {
  if (!OfferRepair(profile)) return kFailure;
  execv("/proc/self/exe", argv);
  ReportError("Cannot start again.");
  return kFailure;
}

}  // namespace

int RunHost(int argc, char** argv) {
  HostOptions options;
  if (const auto status = ReadCommandLine(argc, argv, options)) return *status;
  if (options.timings) EnableTimings();
  LogTiming("arguments read");
  HostProfile profile(ProfileDir(options));
  LoadedModule module;
  const HandOver handOver = HandOverOf(options);
  const auto open = [&] { return Prepare(options, profile, module); };
  if (const Failure failure = open()) {
    if (CanBeRepaired(options, profile)) {
      ReportError(*failure);
      return RepairAndStartAgain(argv, profile);
    }
    const bool isSecond = profile.lock.IsHeldElsewhere() && !options.screenshot;
    const SecondStartEnd end = isSecond ? RunSecondStart(profile, handOver, open)
                                        : SecondStartEnd{false, RefusalOf(*failure, profile.paths)};
    if (end.isHandedOver) return 0;
    if (end.refusal) return Refuse(options, profile, *end.refusal);
  }
  if (profile.isNew) ReportError("Made a new profile in " + profile.paths.dir);
  return RunApplication(argv[0], options, profile, module, handOver);
}

}  // namespace feedloom
