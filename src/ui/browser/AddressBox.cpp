#include "ui/browser/AddressBox.h"

#include <QInputMethodEvent>
#include <QTextCharFormat>

namespace feedloom {

void AddressBox::Show(const QUrl& url) {
  shown_ = DisplayAddress(url);
  const bool isAnother = shown_.text != text();
  if (isAnother) setText(shown_.text);
  setModified(false);
  if (isAnother || !HasKeyboard()) BringHostIntoView();
  MarkHost();
}

// True also while another window is active: the user may look up there what to type.
bool AddressBox::HasKeyboard() const { return window()->focusWidget() == this; }

// The beginning of the address is in view, unless the host's end would not be: everybody can put
// "example.com" before a name of his own.
void AddressBox::BringHostIntoView() {
  constexpr int kMargins = 24;
  const auto hostEnd = static_cast<int>(shown_.hostBegin + shown_.hostLength);
  QFont bold = font();
  bold.setBold(true);
  setCursorPosition(0);
  if (QFontMetrics(bold).horizontalAdvance(text().left(hostEnd)) + kMargins < width()) return;
  if (isVisible()) repaint();  // scrolls to the beginning: the cursor then stops at the right edge
  setCursorPosition(hostEnd);
}

// The toolkit's edit box formats a part of its text only for input methods. Places count from the
// cursor.
void AddressBox::MarkHost() {
  QList<QInputMethodEvent::Attribute> marks;
  if (!hasFocus() && text() == shown_.text && shown_.hostLength > 0) {
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    marks.append({QInputMethodEvent::TextFormat,
                  static_cast<int>(shown_.hostBegin) - cursorPosition(),
                  static_cast<int>(shown_.hostLength), bold});
  }
  QInputMethodEvent event({}, marks);
  inputMethodEvent(&event);
}

void AddressBox::focusInEvent(QFocusEvent* event) {
  CVxEdit::focusInEvent(event);
  MarkHost();
}

void AddressBox::focusOutEvent(QFocusEvent* event) {
  CVxEdit::focusOutEvent(event);
  MarkHost();
}

void AddressBox::resizeEvent(QResizeEvent* event) {
  CVxEdit::resizeEvent(event);
  if (HasKeyboard() || text() != shown_.text) return;
  BringHostIntoView();
  MarkHost();
}

}  // namespace feedloom
