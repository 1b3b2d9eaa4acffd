// A dialog of the module over a parent, as a user meets it, and what every user needs of one.
#pragma once

#include "controls/AccessibleTree.h"
#include "controls/CButtonEx.h"
#include "controls/CVxDialog.h"
#include "look/DialogAnswers.h"
#include "store/Cabinets.h"
#include "store/Folders.h"
#include "ui/ChannelDetails.h"
#include "ui/Fakes.h"
#include "ui/Login.h"
#include "ui/dialogs/Dialogs.h"

namespace feedloom {

// What can be used or read now, as a screen reader has it: "name=value", "*" before what is chosen,
// ">" before what has the keyboard. What is disabled is left out.
inline std::string Look(QWidget& widget) {
  QStringList lines;
  if (widget.isWindow()) lines << widget.windowTitle();
  for (const QAccessibleInterface* node : NodesBelow(widget)) {
    const auto role = node->role();
    const bool isText =
        role == QAccessible::StaticText && node->relations(QAccessible::Labelled).isEmpty();
    if (node->state().disabled || !(isText || IsForTheUser(*node))) continue;
    lines << QString(node->state().focused ? ">" : "") + (node->state().checked ? "*" : "") +
                 SpokenName(*node);
    if (role == QAccessible::EditableText || role == QAccessible::ComboBox ||
        role == QAccessible::Slider)
      lines.back() += (node->state().readOnly ? ": " : "=") + node->text(QAccessible::Value);
    if (role == QAccessible::EditableText) {
      const QString more = node->text(QAccessible::Description);
      lines.back() += more.isEmpty() ? "" : " (" + more + ")";
      EXPECT_EQ(node->text(QAccessible::Name), SpokenName(*node));
    }
    const auto* const list = qobject_cast<const QComboBox*>(node->object());
    for (int i = 0; list && i < list->count(); ++i) lines.back() += '|' + list->itemText(i);
  }
  return lines.join("; ").toStdString();
}

// Each control has the room that it needs, inside of its parent, and to itself.
inline void ExpectRoomIn(const QWidget& in) {
  QRegion taken;
  for (const auto* child : in.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!child->isVisible() || child->isWindow()) continue;
    const bool isText = child->inherits("QLabel") || child->inherits("QAbstractButton");
    const QSize need = isText ? child->sizeHint() : child->minimumSizeHint();
    EXPECT_EQ(need.boundedTo(child->size()), need.boundedTo(child->maximumSize()));
    EXPECT_TRUE(in.rect().contains(child->geometry()) && !taken.intersects(child->geometry()));
    taken += child->geometry();
    if (!child->inherits("QAbstractScrollArea")) ExpectRoomIn(*child);
  }
}

struct DialogFrame : FakeDesk, FakeRefreshing, FakeSubscribing {
  DialogFrame() : FakeSubscribing(static_cast<FakeDesk&>(*this)) {}
};

struct DialogFixture : testing::Test {
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

  DialogFrame frame;
  std::unique_ptr<QWidget> parent = std::make_unique<QWidget>();
  DialogAnswers answers;
  QDialog* dialog = nullptr;  // that waits for the user
};

// With a folder, a channel and a cabinet.
struct Dialogs : DialogFixture {
  void Add(int folder, const char* address, Action action) {
    WhenShown(std::move(action));
    ShowChannelAdd(frame, frame, frame, parent.get(), folder, address);
  }
  Keys Check(const FeedCheckAnswer& answer) {
    Click("주소 확인");
    std::function(frame.answerCheck)(answer);
    return Messages();
  }
  QComboBox& List() { return *dialog->findChild<QComboBox*>(); }
  Keys Choose(const QString& folder) { return List().setCurrentText(folder), Click(); }
  Keys ChooseWhileLocked(const QString& folder) {
    const ForeignLock lock(frame.db.DbPath());
    return Choose(folder);
  }

  int news_ = AddFolder(frame.GetStore(), "News", 4);
  int daily_ = frame.db.AddChannelWithPosts(news_, "Daily", 1);
  int keep_ = AddCabinet(frame.GetStore(), "Keep", 7);
  ChannelDetails channel_{{.id = daily_,
                           .folderId = news_,
                           .title = Korean("똠방각하"),
                           .xmlLink = "http://example.com/Daily"},
                          "News"};
};

}  // namespace feedloom
