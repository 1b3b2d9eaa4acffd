// A dialog of this folder over a parent, as a user meets it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/FakeFrame.h"
#include "ui/dialogs/Dialogs.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/DialogAnswers.h"

namespace feedloom {

class DialogFixture : public testing::Test {
 protected:
  using Keys = std::vector<std::string>;

  // Does `deed` to the dialog that shows next, as soon as it waits for the user.
  void WhenShown(DialogAnswers::Deed deed) { answers.Next(std::move(deed)); }

  static void Press(QDialog& dialog, Qt::Key key) { QTest::keyClick(dialog.focusWidget(), key); }
  static void Click(QDialog& dialog, const QString& text) {
    for (auto* button : dialog.findChildren<CButtonEx*>()) {
      if (button->text() == text) return QTest::mouseClick(button, Qt::LeftButton);
    }
    ADD_FAILURE() << "no button " << text.toStdString();
  }

  // The messages that were shown, by their keys.
  const Keys& Messages() const { return frame.questions; }

  FakeFrame frame;
  std::unique_ptr<QWidget> parent = std::make_unique<QWidget>();
  DialogAnswers answers;
};

}  // namespace feedloom
