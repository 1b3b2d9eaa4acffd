#include "shell/ModuleThreads.h"

#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <string_view>

namespace {

std::atomic<bool> isRefusing = false;
std::atomic<int> refused = 0;

bool IsOfCxxLibrary(const void* caller) {
  Dl_info place{};
  return dladdr(caller, &place) != 0 &&
         std::string_view(place.dli_fname).find("libstdc++") != std::string_view::npos;
}

}  // namespace

// This program's own function comes before the system's for all libraries.
int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) noexcept {
  static const auto start =
      reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
  if (isRefusing && IsOfCxxLibrary(__builtin_return_address(0))) return ++refused, EAGAIN;
  return start(thread, attributes, run, argument);
}

namespace feedloom {

ModuleThreadRefusal::ModuleThreadRefusal() {
  refused = 0;
  isRefusing = true;
}

ModuleThreadRefusal::~ModuleThreadRefusal() { isRefusing = false; }

int ModuleThreadRefusal::Refused() const { return refused; }

}  // namespace feedloom
