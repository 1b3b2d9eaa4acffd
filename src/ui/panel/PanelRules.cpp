#include "ui/panel/PanelRules.h"

#include "skin/Keys.h"

namespace feedloom {

const char* ValidatePanelSettings(const Settings& settings) {
  const bool isSound = settings.feedDeleteMode != 0 || settings.feedDeleteDate >= 1;
  return isSound ? nullptr : kTextDeleteDateError;
}

}  // namespace feedloom
