// The message box and the base of the dialogs.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "kit/ShippedSkin.h"
#include "skin/Keys.h"
#include "vxctrl/AccessibleTree.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CMsgBox.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/CVxFormDialog.h"
#include "vxctrl/DialogAnswers.h"

namespace feedloom {
namespace {

using Deed = DialogAnswers::Deed;

Deed Press(std::initializer_list<Qt::Key> keys) {
  return [keys = std::vector(keys)](QDialog& dialog) {
    for (const Qt::Key key : keys) QTest::keyClick(dialog.focusWidget(), key);
  };
}

Deed Click(const QString& text) {
  return [text](QDialog& dialog) {
    for (auto* button : dialog.findChildren<CButtonEx*>()) {
      if (button->text() == text) return QTest::mouseClick(button, Qt::LeftButton);
    }
  };
}

void HoldEnter(QDialog& dialog) {
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(dialog.focusWidget(), &held);
  EXPECT_TRUE(dialog.isVisible());
}

// Asks for a name, which must not be empty, and a cabinet.
class NameDialog : public CVxFormDialog {
 public:
  NameDialog(const Skin& skin, const char* titleKey, QWidget* parent)
      : CVxFormDialog(skin, titleKey, parent), name(*AddEdit(kTextSearchDialogLabel)) {
    AddComboBox(kTextScrapDialogLabel)->addItems({"One", "Two"});
    AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
  }
  void accept() override { name.text().isEmpty() ? refuse() : CVxFormDialog::accept(); }

  CVxEdit& name;
  std::function<void()> refuse = [] {};
};

class Dialogs : public testing::Test {
 protected:
  // Does `deed` to the next dialog, which must end by it.
  void Next(const Deed& deed) {
    answers_.Next([deed](QDialog& dialog) {
      const QPointer<QDialog> shown(&dialog);
      deed(dialog);
      EXPECT_TRUE(!shown || !shown->isVisible());
    });
  }
  MsgBoxAnswer Answer(MsgBoxKind kind, const Deed& deed) {
    Next(deed);
    return ShowMsgBox(skin_, "?", kind, parent_.get());
  }
  // The name when the dialog was accepted, else "(none)".
  QString Ask(
      const Deed& deed, const std::function<void()>& refuse = [] {}) {
    Next(deed);
    auto* dialog = new NameDialog(skin_, kTextSearchDialogTitle, parent_.get());
    dialog->refuse = refuse;
    QString name = "(none)";
    const bool isAccepted = RunDialog(dialog, [&] { name = dialog->name.text(); });
    EXPECT_EQ(isAccepted, name != "(none)");
    EXPECT_TRUE(!parent_ || parent_->findChildren<QDialog*>().isEmpty());
    return name;
  }

  const ShippedSkin english_{"ENG"};
  const ShippedSkin korean_{"KOR"};
  const Skin& skin_ = english_.Get();
  std::unique_ptr<QWidget> parent_ = std::make_unique<QWidget>();
  DialogAnswers answers_;
};

TEST_F(Dialogs, AMessageBoxHasTheButtonsOfItsKindAndOnlyTheFirstConsents) {
  const std::tuple<MsgBoxKind, QStringList, QStringList> kKinds[] = {
      {MsgBoxKind::YesNo, {"Yes", "No"}, {"예", "아니요"}},
      {MsgBoxKind::OkCancel, {"OK", "Cancel"}, {"확인", "취소"}},
      {MsgBoxKind::Notice, {"OK"}, {"확인"}}};
  for (const auto& [kind, english, korean] : kKinds) {
    for (const auto& [skin, names] : {std::pair(&english_, english), {&korean_, korean}}) {
      const CMsgBox box(skin->Get(), "?", kind, nullptr);
      QStringList seen;
      for (const auto* button : box.findChildren<CButtonEx*>()) seen << button->accessibleName();
      EXPECT_EQ(seen, names);
    }
    for (const QString& name : english) {
      EXPECT_EQ(Answer(kind, Click(name)) == MsgBoxAnswer::Consented, name == english[0]);
    }
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      EXPECT_EQ(Answer(kind, Press({key})) == MsgBoxAnswer::Consented, key != Qt::Key_Escape);
    }
    EXPECT_EQ(Answer(kind, &QDialog::close), MsgBoxAnswer::Declined);
  }
  EXPECT_EQ(Answer(MsgBoxKind::YesNo, Press({Qt::Key_Tab, Qt::Key_Return})),
            MsgBoxAnswer::Declined);
  EXPECT_EQ(Answer(MsgBoxKind::YesNo, Press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})),
            MsgBoxAnswer::Consented)
      << "a short text is no stop";
  const auto enterInText = [](QDialog& box) {
    box.findChild<QLabel*>()->setFocus();
    HoldEnter(box);
    QTest::keyClick(box.focusWidget(), Qt::Key_Enter);
  };
  EXPECT_EQ(Answer(MsgBoxKind::YesNo, enterInText), MsgBoxAnswer::Consented);
}

TEST_F(Dialogs, AMessageIsPlainTextInTheHostsLookAndTold) {
  CMsgBox box(skin_, "<b>bold</b>", MsgBoxKind::Notice, nullptr);
  EXPECT_EQ(box.windowTitle(), "Halvix 3.0");
  EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
  EXPECT_EQ(box.findChild<QLabel*>()->font().pixelSize(), 12);
  EXPECT_EQ(box.palette().color(QPalette::Window), QColor(0xF4F7F8));
  const auto* const node = QAccessible::queryAccessibleInterface(&box);
  EXPECT_EQ(node->role(), QAccessible::AlertMessage);
  EXPECT_EQ(node->text(QAccessible::Description), "<b>bold</b>");
  EXPECT_EQ(Unlabelled(box), QStringList());
}

TEST_F(Dialogs, OnlyATextThatDoesNotFitTheScreenIsScrolledAndTheBoxStaysOnIt) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const std::pair<QString, bool> kTexts[] = {
      {QStringLiteral("낱말 ").repeated(3333), true},
      {QString(10000, 'a'), true},
      {QStringLiteral("line\r\n").repeated(1666), true},
      {"Done.", false},
      {"Line one\r\nline two\r\nline three", false},
      {"Two lines, which need all of the width\r\nthat the text area has got", false},
      {"A sentence that is too long for one line of the box and is therefore wrapped at the space "
       "between two of its words.",
       false}};
  for (const auto& [text, isLong] : kTexts) {
    CMsgBox box(skin_, text, MsgBoxKind::YesNo, nullptr);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    EXPECT_TRUE(screen.size().expandedTo(box.size()) == screen.size()) << box.height();
    const auto& area = *box.findChild<QScrollArea*>();
    EXPECT_EQ(area.verticalScrollBar()->maximum() + area.horizontalScrollBar()->maximum() > 0,
              isLong);
    EXPECT_EQ(area.viewport()->width() < area.width(), area.verticalScrollBar()->maximum() > 0);
    for (const auto* button : box.findChildren<CButtonEx*>()) {
      EXPECT_TRUE(box.rect().contains(QRect(button->mapTo(&box, QPoint(0, 0)), button->size())));
    }
  }
}

TEST_F(Dialogs, ADialogGivesWhatWasTypedWhenItIsAcceptedAndNothingElse) {
  const auto typeAnd = [](const Deed& deed) {
    return
        [deed](QDialog& dialog) { QTest::keyClicks(dialog.focusWidget(), "news"), deed(dialog); };
  };
  const std::pair<Deed, const char*> kEnds[] = {
      {Click("OK"), "news"},
      {Press({Qt::Key_Return}), "news"},
      {Press({Qt::Key_Enter}), "news"},
      {Press({Qt::Key_Tab, Qt::Key_Return}), "news"},
      {Press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}), "(none)"},
      {Click("Cancel"), "(none)"},
      {Press({Qt::Key_Escape}), "(none)"},
      {&QDialog::close, "(none)"}};
  for (const auto& [end, name] : kEnds) EXPECT_EQ(Ask(typeAnd(end)), name);
}

TEST_F(Dialogs, ADialogIsReadAndWalkedInOrderAndNamedByTheHost) {
  const auto walk = [](QDialog& dialog) {
    QStringList stops;
    for (int i = 0; i < 5; ++i, QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab)) {
      stops << SpokenName(*QAccessible::queryAccessibleInterface(dialog.focusWidget()));
    }
    EXPECT_EQ(stops, QStringList({"Search word", "Cabinet", "OK", "Cancel", "Search word"}));
    EXPECT_EQ(dialog.windowTitle(), "Search");
    dynamic_cast<NameDialog&>(dialog).SetAlphaValue(kInvisible / 5);
    EXPECT_DOUBLE_EQ(dialog.windowOpacity(), 0.8);
    EXPECT_EQ(dialog.font().pixelSize(), 12);
    dialog.close();
  };
  Ask(walk);
  EXPECT_EQ(NameDialog(skin_, nullptr, nullptr).windowTitle(), "Halvix 3.0");
}

TEST_F(Dialogs, ADialogStaysOpenUntilItsFieldsAreSound) {
  int refusals = 0;
  const auto tryTwice = [](QDialog& dialog) {
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    HoldEnter(dialog);  // while the message was read
    QTest::keyClicks(dialog.focusWidget(), "news\r");
  };
  EXPECT_EQ(Ask(tryTwice, [&] { ++refusals; }), "news");
  EXPECT_EQ(refusals, 1);
}

TEST_F(Dialogs, AParentThatGoesTakesItsDialogAlong) {
  EXPECT_EQ(Ask([&](QDialog&) { parent_.reset(); }), "(none)");
  parent_ = std::make_unique<QWidget>();
  EXPECT_EQ(Ask(Press({Qt::Key_Return}), [&] { parent_.reset(); }), "(none)");
  parent_ = std::make_unique<QWidget>();
  EXPECT_EQ(Answer(MsgBoxKind::YesNo, [&](QDialog&) { parent_.reset(); }), MsgBoxAnswer::Declined);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace feedloom
