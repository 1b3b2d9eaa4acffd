// The module's message box: a text and the buttons of its kind.
#pragma once

#include "controls/CVxDialog.h"

namespace feedloom {

// An offer is a question whose consent costs nothing.
enum class MsgBoxKind { YesNo = 0, OkCancel = 1, Notice = 2, Offer = 3 };

// Yes and OK consent. No, Cancel, Escape and closing the box decline.
enum class MsgBoxAnswer { Declined, Consented };

// A modal dialog for exec(); ShowMsgBox does both. Enter presses the focused button. At first that
// is the one that changes nothing, and in a notice and an offer the consenting one. Screen readers
// announce the text as an alert.
class CMsgBox : public CVxDialog {
  Q_OBJECT

 public:
  // `text` is plain text, with line breaks; it is scrolled when it does not fit the screen.
  // Buttons, font, colours and caption come from `skin`, which may be destroyed after the
  // constructor.
  CMsgBox(const Skin& skin, const QString& text, MsgBoxKind kind, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeTextArea(const QString& text);
  QHBoxLayout* MakeChoiceRow(MsgBoxKind kind);
};

// Shows a message box over `parent`, or over the dialog of it that waits for the user, and returns
// the user's answer. When that window is destroyed meanwhile, the box goes with it and the answer
// is Declined.
MsgBoxAnswer ShowMsgBox(const Skin& skin, const QString& text, MsgBoxKind kind, QWidget* parent);

}  // namespace feedloom
