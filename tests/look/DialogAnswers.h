// The next answers of a user: to message boxes, file dialogs and the module's own dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>
#include <deque>

namespace feedloom {

// While the object lives, each modal dialog that comes up meets the next answer. The program knows
// nothing of it.
class DialogAnswers : public QObject {
 public:
  using Action = std::function<void(QDialog&)>;

  DialogAnswers() { qApp->installEventFilter(this); }

  // Done to the next dialog as soon as it waits for the user, who closes it afterwards.
  void Next(Action action) { actions_.push_back(std::move(action)); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const dialog = qobject_cast<QDialog*>(watched);
    const bool isShown = event->type() == QEvent::Show && dialog != nullptr && dialog->isModal();
    if (!isShown || actions_.empty()) return false;
    const Action action = std::exchange(actions_.front(), nullptr);
    actions_.pop_front();
    QTimer::singleShot(0, dialog, [dialog = QPointer(dialog), action] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
      action(*dialog);
      if (dialog && dialog->isVisible()) dialog->close();
    });
    return false;
  }

 private:
  std::deque<Action> actions_;
};

}  // namespace feedloom
