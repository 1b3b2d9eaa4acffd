#pragma once

#include <QTranslator>

namespace feedloom {

class Skin;

// Gives the application the skin's colours and font, for all windows, menus and tool tips, and the
// host's language for the toolkit's own texts (file dialogs, the menus of edit boxes). The texts
// stay translated as long as the object lives. Destroy it before the application object. Interface
// thread.
class ApplicationStyle {
 public:
  explicit ApplicationStyle(const Skin& skin);

 private:
  QTranslator toolkitTexts_;
};

}  // namespace feedloom
