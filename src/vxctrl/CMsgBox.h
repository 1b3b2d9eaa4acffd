// The module's message box: one text, and the buttons that its kind asks for.
#pragma once

#include <QDialog>

class QAbstractButton;

namespace feedloom {

class Skin;

enum class MsgBoxKind { YesNo = 0, OkCancel = 1, Notice = 2 };

// Consent is Yes or OK; everything else, closing the box too, declines.
enum class MsgBoxAnswer { Declined, Consented };

// A modal dialog: make one and exec() it, or call ShowMsgBox. Enter presses the button that has the
// focus, at first the one that consents. A screen reader is told the text.
class CMsgBox : public QDialog {
  Q_OBJECT

 public:
  // `text`, never taken for markup, with its line breaks; buttons, font and caption come from
  // `skin`, which is not kept. A text that does not fit the screen is scrolled.
  CMsgBox(const Skin& skin, const QString& text, MsgBoxKind kind, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeTextArea(const QString& text);
  QWidget* MakeButtonRow(const Skin& skin, MsgBoxKind kind);

  QAbstractButton* consent_ = nullptr;  // a child
};

// Shows the box over `parent` and waits. Declined when `parent` goes meanwhile, and the box with
// it.
MsgBoxAnswer ShowMsgBox(const Skin& skin, const QString& text, MsgBoxKind kind, QWidget* parent);

}  // namespace feedloom
