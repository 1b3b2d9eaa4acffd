#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <ostream>

#include "kit/ShippedSkin.h"
#include "skin/Keys.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CMsgBox.h"

namespace feedloom {

void PrintTo(MsgBoxAnswer answer, std::ostream* out) {
  *out << (answer == MsgBoxAnswer::Consented ? "Consented" : "Declined");
}

namespace {

const MsgBoxKind kAllKinds[] = {MsgBoxKind::YesNo, MsgBoxKind::OkCancel, MsgBoxKind::Notice};

class CMsgBoxTest : public testing::Test {
 protected:
  using Deed = std::function<void(CMsgBox&)>;

  // Shows the box, does `deed` to it as soon as it waits, and gives its answer. A box that is still
  // there after it fails the test.
  MsgBoxAnswer Answer(MsgBoxKind kind, const Deed& deed) {
    QTimer::singleShot(0, &parent_, [&] {
      auto* box = qobject_cast<CMsgBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      deed(*box);
    });
    const MsgBoxAnswer answer = ShowMsgBox(shipped_.Get(), "?", kind, &parent_);
    EXPECT_TRUE(parent_.findChildren<CMsgBox*>().isEmpty());
    return answer;
  }
  MsgBoxAnswer AnswerByKey(MsgBoxKind kind, Qt::Key key) {
    return Answer(kind, [key](CMsgBox& box) { QTest::keyClick(box.focusWidget(), key); });
  }
  MsgBoxAnswer AnswerByButton(MsgBoxKind kind, const char* name) {
    return Answer(kind, [name](CMsgBox& box) {
      for (auto* button : box.findChildren<CButtonEx*>()) {
        if (button->text() == name) return QTest::mouseClick(button, Qt::LeftButton);
      }
      ADD_FAILURE() << "no button " << name;
      box.close();
    });
  }

  static QStringList ButtonsOf(const CMsgBox& box) {
    QStringList names;
    for (const auto* button : box.findChildren<CButtonEx*>()) names << button->accessibleName();
    return names;
  }

  const ShippedSkin shipped_{"ENG"};
  QWidget parent_;
};

TEST_F(CMsgBoxTest, AScreenReaderIsToldTheText) {
  CMsgBox box(shipped_.Get(), "Delete it?", MsgBoxKind::YesNo, nullptr);
  const auto* const node = QAccessible::queryAccessibleInterface(&box);
  EXPECT_EQ(node->role(), QAccessible::AlertMessage);
  EXPECT_EQ(node->text(QAccessible::Description), "Delete it?");
}

TEST_F(CMsgBoxTest, TheKindChoosesTheButtons) {
  const auto buttons = [&](const ShippedSkin& shipped, MsgBoxKind kind) {
    return ButtonsOf(CMsgBox(shipped.Get(), "?", kind, nullptr));
  };
  EXPECT_EQ(buttons(shipped_, MsgBoxKind::YesNo), QStringList({"Yes", "No"}));
  EXPECT_EQ(buttons(shipped_, MsgBoxKind::OkCancel), QStringList({"OK", "Cancel"}));
  EXPECT_EQ(buttons(shipped_, MsgBoxKind::Notice), QStringList({"OK"}));

  const ShippedSkin korean("KOR");
  EXPECT_EQ(buttons(korean, MsgBoxKind::YesNo), QStringList({"예", "아니요"}));
  EXPECT_EQ(buttons(korean, MsgBoxKind::OkCancel), QStringList({"확인", "취소"}));
}

TEST_F(CMsgBoxTest, OnlyYesAndOkConsent) {
  EXPECT_EQ(AnswerByButton(MsgBoxKind::YesNo, "Yes"), MsgBoxAnswer::Consented);
  EXPECT_EQ(AnswerByButton(MsgBoxKind::YesNo, "No"), MsgBoxAnswer::Declined);
  EXPECT_EQ(AnswerByButton(MsgBoxKind::OkCancel, "OK"), MsgBoxAnswer::Consented);
  EXPECT_EQ(AnswerByButton(MsgBoxKind::OkCancel, "Cancel"), MsgBoxAnswer::Declined);
  EXPECT_EQ(AnswerByButton(MsgBoxKind::Notice, "OK"), MsgBoxAnswer::Consented);
}

TEST_F(CMsgBoxTest, EnterConsentsAndEscapeOrClosingDeclines) {
  for (const MsgBoxKind kind : kAllKinds) {
    EXPECT_EQ(AnswerByKey(kind, Qt::Key_Return), MsgBoxAnswer::Consented);
    EXPECT_EQ(AnswerByKey(kind, Qt::Key_Enter), MsgBoxAnswer::Consented);
    EXPECT_EQ(AnswerByKey(kind, Qt::Key_Escape), MsgBoxAnswer::Declined);
    EXPECT_EQ(Answer(kind, [](CMsgBox& box) { box.close(); }), MsgBoxAnswer::Declined);
  }
}

TEST_F(CMsgBoxTest, EnterPressesTheButtonThatTabWentTo) {
  const auto tabAndEnter = [](CMsgBox& box) {
    QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(box.focusWidget(), Qt::Key_Return);
  };
  EXPECT_EQ(Answer(MsgBoxKind::YesNo, tabAndEnter), MsgBoxAnswer::Declined);
}

TEST_F(CMsgBoxTest, TabStopsOnlyAtTheButtonsOfAShortText) {
  const auto tabTwice = [](CMsgBox& box) {
    for (int i = 0; i < 2; ++i) QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(qobject_cast<CButtonEx*>(box.focusWidget())->text(), "Yes");
    box.close();
  };
  Answer(MsgBoxKind::YesNo, tabTwice);
}

TEST_F(CMsgBoxTest, EnterConsentsFromTheTextToo) {
  const auto enterInText = [](CMsgBox& box) {
    auto* label = box.findChild<QLabel*>();
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Return);
  };
  EXPECT_EQ(Answer(MsgBoxKind::YesNo, enterInText), MsgBoxAnswer::Consented);
}

TEST_F(CMsgBoxTest, AParentThatGoesTakesTheBoxAlongAndDeclines) {
  auto parent = std::make_unique<QWidget>();
  QTimer::singleShot(0, parent.get(), [&] { parent.reset(); });
  EXPECT_EQ(ShowMsgBox(shipped_.Get(), "?", MsgBoxKind::YesNo, parent.get()),
            MsgBoxAnswer::Declined);
  EXPECT_EQ(parent, nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(CMsgBoxTest, CaptionAndFontAreTheHosts) {
  const CMsgBox box(shipped_.Get(), "?", MsgBoxKind::Notice, nullptr);
  EXPECT_EQ(box.windowTitle(), "Halvix 3.0");
  EXPECT_EQ(box.findChild<QLabel*>()->font().pixelSize(), 12);
  EXPECT_EQ(box.findChild<CButtonEx*>()->font().pixelSize(), 12);
}

TEST_F(CMsgBoxTest, ATextIsNeverMarkup) {
  const CMsgBox box(shipped_.Get(), "<b>bold</b>", MsgBoxKind::Notice, nullptr);
  const auto* label = box.findChild<QLabel*>();
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_EQ(label->text(), "<b>bold</b>");
}

// Texts of any length and shape: the box stays on the screen, and the text can be scrolled.
TEST_F(CMsgBoxTest, ALongTextIsScrolledInsideTheScreen) {
  const QSize screen = QApplication::primaryScreen()->availableSize();
  for (const QString& text : {QStringLiteral("낱말 ").repeated(3333), QString(10000, 'a'),
                              QStringLiteral("line\r\n").repeated(1666)}) {
    CMsgBox box(shipped_.Get(), text, MsgBoxKind::YesNo, nullptr);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    EXPECT_LE(box.width(), screen.width());
    EXPECT_LE(box.height(), screen.height());
    auto* area = box.findChild<QScrollArea*>();
    EXPECT_GT(area->verticalScrollBar()->maximum() + area->horizontalScrollBar()->maximum(), 0);
    for (const auto* button : box.findChildren<CButtonEx*>()) {
      EXPECT_TRUE(box.rect().contains(
          button->geometry().translated(button->parentWidget()->mapTo(&box, QPoint(0, 0)))));
    }
  }
}

TEST_F(CMsgBoxTest, AShortTextNeedsNoScrolling) {
  for (const char* text : {"Done.", "Line one\r\nline two\r\nline three",
                           "Two lines, which need all of the width\r\nthat the text area has got",
                           "A sentence that is too long for one line of the box and is therefore "
                           "wrapped at the space between two of its words."}) {
    CMsgBox box(shipped_.Get(), text, MsgBoxKind::Notice, nullptr);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    const auto* area = box.findChild<QScrollArea*>();
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0) << text;
    EXPECT_EQ(area->viewport()->width(), area->width()) << text;
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << text;
  }
}

}  // namespace
}  // namespace feedloom
