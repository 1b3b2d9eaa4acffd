#include "skin/Labels.h"

#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr Label kLabels[] = {
#define FEEDLOOM_LABEL(constant, key, builtIn) constant,
#include "skin/LabelKeys.def"
#undef FEEDLOOM_LABEL
};

}  // namespace

std::span<const Label> Labels() { return kLabels; }

std::string GetLabel(const Skin& skin, const Label& label) {
  const std::string hosts = skin.GetText(kSectionTexts, label.key);
  return hosts.empty() ? skin.Config().GetCodePage().FromUtf8(label.builtIn) : hosts;
}

}  // namespace feedloom
