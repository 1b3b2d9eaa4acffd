// The message box and the base of the dialogs.

#include "controls/AccessibleTree.h"
#include "controls/CButtonEx.h"
#include "controls/CMsgBox.h"
#include "controls/CVxEdit.h"
#include "controls/CVxFormDialog.h"
#include "kit/ShippedSkin.h"
#include "look/DialogAnswers.h"

namespace feedloom {
namespace {

using Action = DialogAnswers::Action;

Action Click(const QString& text) {
  return [text](QDialog& dialog) {
    for (auto* button : dialog.findChildren<CButtonEx*>())
      if (button->text() == text) return QTest::mouseClick(button, Qt::LeftButton);
  };
}
Action Type(const char* keys) {
  return [keys](QDialog& dialog) {
    for (const char key : std::string_view(keys)) QTest::keyClick(dialog.focusWidget(), key);
  };
}

// Asks for a name, which must not be empty.
class NameDialog : public CVxFormDialog {
 public:
  NameDialog(const Skin& skin, QWidget* parent)
      : CVxFormDialog(skin, kTextSearchDialogTitle, parent), name(AddEdit(kTextSearchDialogLabel)) {
    AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
  }
  void accept() override { name->text().isEmpty() ? refuse() : CVxFormDialog::accept(); }

  CVxEdit* const name;
  std::function<void()> refuse;
};

struct Dialogs : testing::Test {
  // Does `action` to the next dialog, which must end by it.
  void Next(const Action& action) {
    answers_.Next([action](QDialog& dialog) {
      const QPointer<QDialog> shown(&dialog);
      action(dialog);
      EXPECT_TRUE(!shown || !shown->isVisible());
    });
  }
  bool Consents(MsgBoxKind kind, const Action& action) {
    Next(action);
    return ShowMsgBox(skin_.Get(), "?", kind, parent_.get()) == MsgBoxAnswer::Consented;
  }
  // The name when the dialog was accepted, else "(none)".
  QString Ask(const Action& action) {
    Next(action);
    auto* dialog = new NameDialog(skin_.Get(), parent_.get());
    dialog->refuse = refuse_;
    QString name;
    return RunDialog(dialog, [&] { name = dialog->name->text(); }) ? name : "(none)";
  }

  const ShippedSkin skin_{"ENG"};
  std::unique_ptr<QWidget> parent_ = std::make_unique<QWidget>();
  std::function<void()> refuse_ = [] {};
  DialogAnswers answers_;
};

TEST_F(Dialogs, AMessageBoxHasTheButtonsOfItsKindAndEnterConsentsToWhatIsHarmless) {
  for (const auto& [kind, names] : {std::pair(MsgBoxKind::YesNo, QStringList{"Yes", "No"}),
                                    {MsgBoxKind::OkCancel, {"OK", "Cancel"}},
                                    {MsgBoxKind::Offer, {"Yes", "No"}},
                                    {MsgBoxKind::Notice, {"OK"}}}) {
    CMsgBox box(skin_.Get(), "<b>bold</b>", kind, nullptr);
    EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_EQ(box.findChildren<CButtonEx*>().size(), names.size());
    for (const QString& name : names) EXPECT_EQ(Consents(kind, Click(name)), name == names[0]);
    EXPECT_EQ(Consents(kind, Type("\r")), kind >= MsgBoxKind::Notice);
    EXPECT_FALSE(Consents(kind, Type("\x1B")));
    EXPECT_FALSE(Consents(kind, &QDialog::close));
  }
  EXPECT_TRUE(Consents(MsgBoxKind::YesNo, Type("\t\r")));
  EXPECT_FALSE(Consents(MsgBoxKind::YesNo, Type("\t\t\r"))) << "a short text is no stop";
}

TEST_F(Dialogs, ShowTheirPartsAtEvenDistances) {
  CMsgBox box(skin_.Get(), "?", MsgBoxKind::YesNo, nullptr);
  NameDialog dialog(skin_.Get(), nullptr);
  for (QDialog* const shown : {static_cast<QDialog*>(&box), static_cast<QDialog*>(&dialog)}) {
    shown->show();  // gives the parts their places
    const auto buttons = shown->findChildren<CButtonEx*>();
    EXPECT_EQ(shown->childrenRect(), shown->rect().adjusted(20, 20, -20, -20));
    EXPECT_EQ(buttons[1]->x() - buttons[0]->geometry().right(), 9);
  }
  EXPECT_EQ(dialog.font().pixelSize(), box.font().pixelSize()) << "the skin's";
}

TEST_F(Dialogs, OnlyATextThatDoesNotFitTheScreenIsScrolled) {
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  for (const auto& [text, isLong] : {std::pair(QStringLiteral("낱말 ").repeated(3333), true),
                                     {QString("A sentence for two lines. ").repeated(4), false}}) {
    CMsgBox box(skin_.Get(), text, MsgBoxKind::YesNo, nullptr);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    EXPECT_EQ(screen.expandedTo(box.size()), screen);
    const auto& area = *box.findChild<QScrollArea*>();
    EXPECT_EQ(area.verticalScrollBar()->maximum() + area.horizontalScrollBar()->maximum() > 0,
              isLong);
  }
}

TEST_F(Dialogs, ADialogGivesWhatWasTypedWhenItIsAcceptedAndStaysOpenUntilItsFieldsAreSound) {
  const std::pair<Action, const char*> kEnds[] = {
      {Type("a\r"), "a"},        {Type("a\t\r"), "a"},        {Type("\ra\r"), "a"},
      {Type("a\x1B"), "(none)"}, {Type("a\t\t\r"), "(none)"}, {Click("Cancel"), "(none)"}};
  for (const auto& [end, name] : kEnds) EXPECT_EQ(Ask(end), name);
}

TEST_F(Dialogs, AKeyThatIsHeldFromBeforeEndsNothing) {
  const Action hold = [](QDialog& dialog) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
      QApplication::sendEvent(&dialog, &held);
      EXPECT_TRUE(dialog.isVisible());
    }
    dialog.close();
  };
  EXPECT_EQ(Ask(hold), "(none)");
  EXPECT_FALSE(Consents(MsgBoxKind::OkCancel, hold));
}

TEST_F(Dialogs, AMessageStandsOverTheDialogThatBringsIt) {
  Ask([&](QDialog& asking) {
    Consents(MsgBoxKind::Notice, [&](QDialog& box) {
      EXPECT_EQ(box.parentWidget(), &asking);
      box.close();
    });
    asking.close();
  });
}

TEST_F(Dialogs, AParentThatGoesTakesItsDialogAlong) {
  refuse_ = [&] { parent_.reset(); };
  for (const Action& action : {Type("\r"), Action([&](QDialog&) { refuse_(); })}) {
    EXPECT_EQ(Ask(action), "(none)");
    parent_ = std::make_unique<QWidget>();
  }
  EXPECT_FALSE(Consents(MsgBoxKind::YesNo, [&](QDialog&) { refuse_(); }));
}

}  // namespace
}  // namespace feedloom
