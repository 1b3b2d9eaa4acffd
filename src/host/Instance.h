#pragma once

#include <string>
#include <vector>

#include "host/HandOver.h"
#include "host/InstanceSocket.h"

namespace feedloom {

class HostWindow;

// What this program is asked to open, by its own arguments and by later starts on its profile.
// Interface thread.
class Instance {
 public:
  // `first` is opened by the first window. Later starts find the program at one of `socketPaths`.
  Instance(const std::vector<std::string>& socketPaths, HandOver first)
      : socket_(socketPaths), first_(std::move(first)) {}

  // From now on `window` opens what comes, and is raised with it, but for a start that wants no
  // window and opens nothing.
  void Serve(HostWindow& window);

 private:
  InstanceSocket socket_;
  HandOver first_;
};

}  // namespace feedloom
