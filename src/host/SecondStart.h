// A start on a profile that another program has open.
#pragma once

#include <functional>
#include <optional>

#include "host/CommandLine.h"
#include "host/HandOver.h"
#include "host/HostProfile.h"
#include "host/Refusal.h"

namespace feedloom {

// Where the sockets for the profile may lie, by the environment.
std::vector<std::string> SocketPathsOf(const ProfilePaths& paths);

// What this start is asked to open, by its arguments, its directory and its environment.
HandOver HandOverOf(const HostOptions& options);

struct SecondStartEnd {
  bool isHandedOver = false;  // the other program has answered
  std::optional<Refusal> refusal = {};
};

// To be called when `profile` could not be opened because another process holds its lock. Hands
// `handOver` to that process. One that has no socket, as it only just begins or is about to end, is
// waited for, ten seconds at most, and meanwhile `open` is called, which tries to open the profile
// again. With neither a refusal nor an answer the profile is open now.
SecondStartEnd RunSecondStart(const HostProfile& profile, const HandOver& handOver,
                              const std::function<Failure()>& open);

}  // namespace feedloom
