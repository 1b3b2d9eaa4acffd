#pragma once

#include "controls/CVxEdit.h"
#include "ui/browser/DisplayedAddress.h"

namespace feedloom {

// The edit box with the address of the page. While it has no focus, the host stands out from the
// rest, and the host's end is in view. Interface thread.
class AddressBox : public CVxEdit {
  Q_OBJECT

 public:
  using CVxEdit::CVxEdit;

  // Shows `url` as DisplayAddress does. The cursor of a user who is in the box moves only when the
  // address is another one.
  void Show(const QUrl& url);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool HasKeyboard() const;
  void BringHostIntoView();
  void MarkHost();

  DisplayedAddress shown_;
};

}  // namespace feedloom
