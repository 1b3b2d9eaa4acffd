// A dialog of the module over a parent, as a user meets it.
#pragma once

#include "ui/FakeFrame.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/panel/DialogLook.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CVxDialog.h"
#include "vxctrl/DialogAnswers.h"

namespace feedloom {

class DialogFixture : public testing::Test {
 protected:
  using Keys = std::vector<std::string>;
  using Action = std::function<void()>;

  // Runs `action` as soon as the next dialog waits for the user; the dialog is closed afterwards.
  void WhenShown(Action action) {
    answers.Next([this, action = std::move(action)](QDialog& shown) {
      QDialog* const outer = std::exchange(dialog, &shown);
      if (dynamic_cast<CVxDialog*>(dialog)) ExpectRoomIn(*dialog);
      action();
      dialog = outer;
    });
  }
  Keys Messages() { return std::exchange(frame.questions, {}); }
  // These return the keys of the messages that they bring.
  Keys Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return QTest::keyClick(dialog->focusWidget(), key, modifiers), Messages();
  }
  Keys Click(const QString& text = "확인") {
    const auto buttons = dialog->findChildren<QAbstractButton*>();
    QTest::mouseClick(*std::ranges::find(buttons, text, &QAbstractButton::text), Qt::LeftButton);
    return Messages();
  }
  // Enters the text where the keyboard is, in place of what is selected there, and clicks.
  Keys Try(const QString& text, const QString& button = "확인") {
    dynamic_cast<QLineEdit&>(*dialog->focusWidget()).insert(text);
    return Click(button);
  }
  QLineEdit& Box(int box = 0) { return *dialog->findChildren<QLineEdit*>()[box]; }

  FakeFrame frame;
  std::unique_ptr<QWidget> parent = std::make_unique<QWidget>();
  DialogAnswers answers;
  QDialog* dialog = nullptr;  // that waits for the user
};

}  // namespace feedloom
