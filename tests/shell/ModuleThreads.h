#pragma once

namespace feedloom {

// While an object lives, the module cannot start threads, which the C++ library does for it. The
// browser engine can: one that it is refused would be waited for at the engine's end.
class ModuleThreadRefusal {
 public:
  ModuleThreadRefusal();
  ~ModuleThreadRefusal();
  ModuleThreadRefusal(const ModuleThreadRefusal&) = delete;
  ModuleThreadRefusal& operator=(const ModuleThreadRefusal&) = delete;

  // How many threads the module has asked for since then.
  int Refused() const;
};

}  // namespace feedloom
