#include "bench/ModuleHost.h"

#include <dlfcn.h>
#include <fmt/core.h>

#include <QTreeView>
#include <QVBoxLayout>

#include "shell/Feedloom.h"

namespace feedloom {
namespace {

HostLookup theLookup;

std::string HostText(const char* section, const char* key) {
  return theLookup.HostGetText(section, key);
}

std::string HostSkinValue(const char* section, const char* key) {
  return theLookup.HostGetSkinValue(section, key);
}

}  // namespace

void* LoadModule(const TestProfile& profile) {
  theLookup = profile.Lookup();
  void* const module = dlopen(profile.LinkModule(FEEDLOOM_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) fmt::print(stderr, "{}\n", dlerror());
  return module;
}

QWidget* ShowModule(void* module, QWidget& host) {
  const auto create = reinterpret_cast<CreateFunction>(dlsym(module, "Create"));
  QWidget* const frame = create(HostText, HostSkinValue, &host);
  (new QVBoxLayout(&host))->addWidget(frame);
  return frame;
}

void DestroyModule(void* module) {
  reinterpret_cast<DestroyBtnFunction>(dlsym(module, "DestroyBtn"))();
}

void SelectFirstChannel(QWidget* frame) {
  QWidget* target = frame;
  while (target->focusProxy() != nullptr) target = target->focusProxy();
  auto& tree = dynamic_cast<QTreeView&>(*target);
  tree.setCurrentIndex(tree.model()->index(0, 0, tree.model()->index(0, 0)));
}

}  // namespace feedloom
