// The skinned edit box and drop-down list.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <utility>

#include "vxctrl/CVxComboBox.h"
#include "vxctrl/CVxEdit.h"
#include "vxctrl/StateImageSkin.h"

namespace feedloom {
namespace {

constexpr int kPieceHeight = 30;

// The outer pieces are red, the middle ones in a colour for each control.
class PlainSkin : public StateImageSkin {
 public:
  PlainSkin() {
    for (const auto& [key, color] : {std::pair(kImageEditLeft, Qt::red),
                                     {kImageEditMiddle, Qt::white},
                                     {kImageEditRight, Qt::red},
                                     {kImageComboLeft, Qt::red},
                                     {kImageComboMiddle, Qt::green},
                                     {kImageComboRight, Qt::red},
                                     {kImagePopUpComboLeft, Qt::red},
                                     {kImagePopUpComboMiddle, Qt::cyan},
                                     {kImagePopUpComboRight, Qt::red}}) {
      AddImage(key, {6, kPieceHeight}, color);
    }
  }
};

class CVxControls : public testing::Test {
 protected:
  // The ground at this distance from the left edge, where no text is.
  static QColor Ground(QWidget& control, int x) {
    return control.grab().toImage().pixelColor(x, control.height() - 3);
  }

  const PlainSkin skin_;
  CVxEdit edit_{skin_.Get(), nullptr};
  CVxComboBox toolbarBox_{skin_.Get(), ComboLook::Toolbar, nullptr};
  CVxComboBox dialogBox_{skin_.Get(), ComboLook::Dialog, nullptr};
};

TEST_F(CVxControls, LieOnTheirOwnThreePiecesAndShowTheirState) {
  for (const auto& [control, middle] : {std::pair<QWidget*, QColor>(&edit_, Qt::white),
                                        {&toolbarBox_, Qt::green},
                                        {&dialogBox_, Qt::cyan}}) {
    control->resize(120, control->sizeHint().height());
    EXPECT_EQ(control->height(), kPieceHeight);
    EXPECT_EQ(Ground(*control, 2), QColor(Qt::red));
    EXPECT_EQ(Ground(*control, 60), middle);
    EXPECT_EQ(Ground(*control, 117), QColor(Qt::red));

    control->setEnabled(false);
    EXPECT_GT(Ground(*control, 2).blue(), 0);
    control->setEnabled(true);

    control->show();
    control->activateWindow();
    control->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([shown = control] { return shown->hasFocus(); }));
    const QColor ring = control->grab().toImage().pixelColor(118, kPieceHeight / 2);
    EXPECT_GT(ring.blue(), 0);
  }
}

TEST_F(CVxControls, AnEditBoxTakesATextOfAnyLengthOnOneLine) {
  const QString text(100'000, QChar(0xAC00));
  QGuiApplication::clipboard()->setText(text);
  edit_.paste();
  EXPECT_EQ(edit_.text(), text);

  edit_.clear();
  QGuiApplication::clipboard()->setText("one\r\ntwo\nthree");
  edit_.paste();
  EXPECT_EQ(edit_.text(), "one  two three");
}

TEST_F(CVxControls, ALongEntryIsCutAndWidensNothing) {
  toolbarBox_.addItem("W");
  dialogBox_.addItem(QString(500, 'W'));
  EXPECT_EQ(dialogBox_.sizeHint(), toolbarBox_.sizeHint());

  dialogBox_.resize(dialogBox_.sizeHint());
  const QImage picture = dialogBox_.grab().toImage();
  for (int y = 4; y < picture.height() - 4; ++y) {
    EXPECT_EQ(picture.pixelColor(picture.width() - 3, y), QColor(Qt::red)) << y;
  }
}

}  // namespace
}  // namespace feedloom
