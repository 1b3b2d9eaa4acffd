#include "host/SecondStart.h"

#include <QByteArray>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "host/InstanceSocket.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kForAnAnswer(5000);
constexpr milliseconds kForASocket(10'000);
constexpr milliseconds kBetweenTries(100);

// Under X11 the desktop names the start, under Wayland it gives a token; either one will do.
std::string ActivationToken() {
  const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
  return (token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token).toStdString();
}

// A holder that no socket of this machine and user can lead to.
std::optional<Refusal> StrangeHolder(const ProfilePaths& paths) {
  const LockHolder holder = ProfileLock::Holder(paths.dir), here = ThisHolder();
  if (!holder.machine.empty() && holder.machine != here.machine) {
    return ProfileRefusal(kHostTextProfileOtherMachine, paths, holder.machine);
  }
  if (holder.user.empty() || holder.user == here.user) return std::nullopt;
  return ProfileRefusal(kHostTextProfileOtherUser, paths, holder.user);
}

}  // namespace

std::vector<std::string> SocketPathsOf(const ProfilePaths& paths) {
  return SocketPaths(paths.dir, qgetenv("XDG_RUNTIME_DIR").toStdString());
}

HandOver HandOverOf(const HostOptions& options) {
  std::error_code error;  // a directory that has gone: the arguments are taken as they are
  const std::string directory = std::filesystem::current_path(error).string();
  HandOver handOver{.activationToken = ActivationToken(), .isHidden = options.isHidden};
  for (const std::string& argument : options.contents)
    handOver.contents.push_back(ContentOf(argument, directory));
  return handOver;
}

SecondStartEnd RunSecondStart(const HostProfile& profile, const HandOver& handOver,
                              const std::function<Failure()>& open) {
  const ProfilePaths& paths = profile.paths;
  for (const auto end = std::chrono::steady_clock::now() + kForASocket;
       std::chrono::steady_clock::now() < end;) {
    const HandOverEnd sent = SendHandOver(SocketPathsOf(paths), handOver, kForAnAnswer);
    if (sent == HandOverEnd::Taken) return {.isHandedOver = true};
    if (sent == HandOverEnd::NoAnswer) break;
    std::this_thread::sleep_for(kBetweenTries);
    const Failure failure = open();
    if (!failure) return {};
    if (!profile.lock.IsHeldElsewhere()) return {.refusal = RefusalOf(*failure, paths)};
    if (auto refusal = StrangeHolder(paths)) return {.refusal = std::move(refusal)};
  }
  return {.refusal = ProfileRefusal(kHostTextProfileNoAnswer, paths)};
}

}  // namespace feedloom
