// A dialog of the module over a parent, as a user meets it.
#pragma once

#include <QLineEdit>

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
  using Deed = std::function<void()>;

  // Does `deed` to the next dialog as soon as it waits for the user.
  void WhenShown(Deed deed) {
    answers.Next([this, deed = std::move(deed)](QDialog& shown) {
      QDialog* const outer = std::exchange(dialog, &shown);
      if (dynamic_cast<CVxDialog*>(dialog)) ExpectFitForUse(*dialog);
      deed();
      dialog = outer;
    });
  }
  Keys Messages() { return std::exchange(frame.questions, {}); }
  // These give the keys of the messages that they bring.
  Keys Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return QTest::keyClick(dialog->focusWidget(), key, modifiers), Messages();
  }
  Keys Click(const QString& text = "확인") {
    for (auto* button : dialog->findChildren<CButtonEx*>()) {
      if (button->text() != text) continue;
      QTest::mouseClick(button, Qt::LeftButton);
      break;  // the others may have gone with the dialog
    }
    return Messages();
  }
  // Enters the text where the keyboard is, in place of what is selected there, and clicks.
  Keys Try(const QString& text, const QString& button = "확인") {
    auto* const box = qobject_cast<QLineEdit*>(dialog->focusWidget());
    if (!box) return {"the keyboard is elsewhere"};
    box->insert(text);
    return Click(button);
  }
  QLineEdit& Box(int box = 0) { return *dialog->findChildren<QLineEdit*>()[box]; }
  QComboBox& List() { return *dialog->findChild<QComboBox*>(); }

  FakeFrame frame;
  std::unique_ptr<QWidget> parent = std::make_unique<QWidget>();
  DialogAnswers answers;
  QDialog* dialog = nullptr;  // that waits for the user
};

}  // namespace feedloom
