#include "vxctrl/QtText.h"

namespace feedloom {

QString ToQString(CodePage codePage, std::string_view text) {
  return QString::fromStdString(codePage.ToUtf8(text));
}

std::string FromQString(CodePage codePage, const QString& text) {
  return codePage.FromUtf8(text.toStdString());
}

}  // namespace feedloom
