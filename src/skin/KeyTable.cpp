#include "skin/KeyTable.h"

#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr const char* kTextKeys[] = {
#define FEEDLOOM_TEXT(constant, key) constant,
#include "skin/TextKeys.def"
#undef FEEDLOOM_TEXT
};

constexpr SkinKey kSkinKeys[] = {
#define FEEDLOOM_SKIN(constant, section, key, kind) {section, constant, SkinValueKind::kind},
#include "skin/SkinKeys.def"
#undef FEEDLOOM_SKIN
};

}  // namespace

std::span<const char* const> TextKeys() { return kTextKeys; }

std::span<const SkinKey> SkinKeys() { return kSkinKeys; }

}  // namespace feedloom
