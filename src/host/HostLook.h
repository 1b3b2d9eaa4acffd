#pragma once

#include <QTranslator>

namespace feedloom {

class Skin;

// While it lives, how the program looks and speaks around the module: the skin's colours for all
// its windows, menus and hints, and the toolkit's own texts (file dialogs, the menus of edit boxes)
// in the host's language. Interface thread; goes before the application object.
class HostLook {
 public:
  explicit HostLook(const Skin& skin);

 private:
  QTranslator toolkitTexts_;
};

}  // namespace feedloom
