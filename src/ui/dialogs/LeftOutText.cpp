#include "ui/dialogs/LeftOutText.h"

#include "skin/Keys.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"

namespace feedloom {
namespace {

constexpr char kLineBreak[] = "\r\n";

const char* KeyOf(LeftOutReason reason) {
  switch (reason) {
    case LeftOutReason::NotOfTheWeb:
      return kTextOpmlNotOfTheWeb;
    case LeftOutReason::TooDeep:
      return kTextOpmlTooDeep;
    case LeftOutReason::NoAddress:
      break;
  }
  return kTextOpmlNoAddress;
}

}  // namespace

std::string LeftOutText(const Skin& skin, const ImportSums& sums) {
  const auto text = [&](const char* key) { return skin.GetText(kSectionTexts, key); };
  if (sums.named.empty() || text(kTextOpmlLeftOut).empty()) return {};
  std::string lines = WithNumbers(text(kTextOpmlLeftOut), {sums.leftOut});
  for (const LeftOutEntry& entry : sums.named) {
    const std::string name = entry.name.empty() ? "" : entry.name + ": ";
    lines.append(kLineBreak).append(name).append(text(KeyOf(entry.reason)));
  }
  const int more = sums.leftOut - static_cast<int>(sums.named.size());
  if (more > 0) lines.append(kLineBreak).append(WithNumbers(text(kTextOpmlMore), {more}));
  return lines;
}

}  // namespace feedloom
