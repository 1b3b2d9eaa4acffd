#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "kit/ShippedSkin.h"
#include "skin/Keys.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/CVxFormDialog.h"

namespace feedloom {
namespace {

// Asks for a name, which must not be empty, and a cabinet.
class NameDialog : public CVxFormDialog {
 public:
  NameDialog(const Skin& skin, const char* titleKey, QWidget* parent)
      : CVxFormDialog(skin, titleKey, parent),
        name(*AddEdit(kTextSearchDialogLabel)),
        cabinet(*AddComboBox(kTextScrapDialogLabel)) {
    cabinet.addItems({"One", "Two"});
    AddButtons(kSectionSearchDialog, kButtonSearchConfirm, kButtonSearchCancel);
  }

  void accept() override {
    if (name.text().isEmpty()) return refuse();
    CVxFormDialog::accept();
  }

  CVxEdit& name;
  CVxComboBox& cabinet;
  std::function<void()> refuse = [] {};
};

class CVxDialogTest : public testing::Test {
 protected:
  using Deed = std::function<void(NameDialog&)>;

  // Shows the dialog and does `deed` to it as soon as it waits; the name when it was accepted, and
  // else "(none)". One that is still there after the deed fails the test.
  QString Ask(const Deed& deed) {
    auto* dialog = new NameDialog(shipped_.Get(), kTextSearchDialogTitle, parent_.get());
    QTimer::singleShot(0, dialog, [&] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
      deed(*dialog);
    });
    QString name = "(none)";
    const bool wasAccepted = RunDialog(dialog, [&] { name = dialog->name.text(); });
    EXPECT_EQ(wasAccepted, name != "(none)");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(!parent_ || parent_->findChildren<NameDialog*>().isEmpty());
    return name;
  }

  static void Press(NameDialog& dialog, Qt::Key key) { QTest::keyClick(dialog.focusWidget(), key); }
  static void Click(NameDialog& dialog, const char* text) {
    for (auto* button : dialog.findChildren<CButtonEx*>()) {
      if (button->text() == text) return QTest::mouseClick(button, Qt::LeftButton);
    }
    ADD_FAILURE() << "no button " << text;
    dialog.close();
  }

  // What a screen reader calls it: its label, or else its own name.
  static QString SpokenName(QWidget& control) {
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&control);
    const auto labels = seen->relations(QAccessible::Label);
    return (labels.isEmpty() ? seen : labels.front().first)->text(QAccessible::Name);
  }

  const ShippedSkin shipped_{"ENG"};
  std::unique_ptr<QWidget> parent_ = std::make_unique<QWidget>();
};

TEST_F(CVxDialogTest, GivesWhatWasTypedOnOkAndNothingElse) {
  const auto type = [](NameDialog& dialog) { QTest::keyClicks(dialog.focusWidget(), "news"); };
  EXPECT_EQ(Ask([&](NameDialog& d) { type(d), Click(d, "OK"); }), "news");
  EXPECT_EQ(Ask([&](NameDialog& d) { type(d), Press(d, Qt::Key_Return); }), "news");
  EXPECT_EQ(Ask([&](NameDialog& d) { type(d), Press(d, Qt::Key_Enter); }), "news");
  EXPECT_EQ(Ask([&](NameDialog& d) { type(d), Click(d, "Cancel"); }), "(none)");
  EXPECT_EQ(Ask([&](NameDialog& d) { type(d), Press(d, Qt::Key_Escape); }), "(none)");
  EXPECT_EQ(Ask([&](NameDialog& d) { type(d), d.close(); }), "(none)");
}

TEST_F(CVxDialogTest, TabGoesThroughFieldsAndButtonsInReadingOrder) {
  const auto tabRound = [](NameDialog& dialog) {
    QStringList stops;
    for (int i = 0; i < 5; ++i) {
      stops << SpokenName(*dialog.focusWidget());
      Press(dialog, Qt::Key_Tab);
    }
    EXPECT_EQ(stops, QStringList({"Search word", "Cabinet", "OK", "Cancel", "Search word"}));
    dialog.close();
  };
  Ask(tabRound);
}

TEST_F(CVxDialogTest, EnterConfirmsFromAListAndPressesCancelWhereTheKeyboardIs) {
  const auto tabAndEnter = [](int tabs) {
    return [tabs](NameDialog& dialog) {
      dialog.name.setText("news");
      for (int i = 0; i < tabs; ++i) Press(dialog, Qt::Key_Tab);
      Press(dialog, Qt::Key_Return);
    };
  };
  EXPECT_EQ(Ask(tabAndEnter(1)), "news");
  EXPECT_EQ(Ask(tabAndEnter(3)), "(none)");
}

TEST_F(CVxDialogTest, StaysOpenUntilItsFieldsAreSound) {
  int refusals = 0;
  const auto tryTwice = [&](NameDialog& dialog) {
    dialog.refuse = [&] { ++refusals; };
    Press(dialog, Qt::Key_Return);
    // Still held while the message was read.
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(dialog.focusWidget(), &held);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClicks(&dialog.name, "news");
    Click(dialog, "OK");
  };
  EXPECT_EQ(Ask(tryTwice), "news");
  EXPECT_EQ(refusals, 1);
}

TEST_F(CVxDialogTest, AParentThatGoesTakesTheDialogAlongAndGivesNothing) {
  EXPECT_EQ(Ask([&](NameDialog&) { parent_.reset(); }), "(none)");
  EXPECT_EQ(parent_, nullptr);
}

TEST_F(CVxDialogTest, TheParentMayGoWhileAMessageIsShown) {
  const auto confirm = [&](NameDialog& dialog) {
    dialog.refuse = [&] { parent_.reset(); };
    Press(dialog, Qt::Key_Return);
  };
  EXPECT_EQ(Ask(confirm), "(none)");
}

TEST_F(CVxDialogTest, TitleAndFontAreTheHosts) {
  const NameDialog titled(shipped_.Get(), kTextScrapDialogTitle, nullptr);
  EXPECT_EQ(titled.windowTitle(), "Save to a cabinet");
  EXPECT_EQ(titled.name.font().pixelSize(), 12);
  EXPECT_EQ(NameDialog(shipped_.Get(), nullptr, nullptr).windowTitle(), "Halvix 3.0");
}

}  // namespace
}  // namespace feedloom
