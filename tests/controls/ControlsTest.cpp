// The skinned button, radio button, slider, edit box and drop-down lists.

#include <QPainter>
#include <QtTest>
#include <QtWidgets>

#include "controls/CButtonEx.h"
#include "controls/CVxComboBox.h"
#include "controls/CVxEdit.h"
#include "controls/CVxRadioButton.h"
#include "controls/CVxSlider.h"
#include "kit/TempFolder.h"
#include "look/PaneFrame.h"
#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {

const std::string kRed = "#ff0000";
const std::string kStateColors[] = {"#ffffff", "#ffff00", "#00ff00", "#808080"};  // by ButtonState

struct Controls : testing::Test {
  Controls() {
    for (QWidget* control : all_) control->resize(112, control->sizeHint().height());
    button_.resize(button_.sizeHint());
  }
  // Images in one colour each: buttons and the thumb in kStateColors, the left end of a field in
  // blue, its right end in magenta, all others in red.
  Skin DrawSkin() const {
    EXPECT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, folder_.Path()));
    const auto draw = [&](const std::string& name, const QSize& size, const std::string& color) {
      QImage image(size, QImage::Format_RGB32);
      image.fill(QColor(QString::fromStdString(color)));
      EXPECT_TRUE(image.save(QString::fromStdString(folder_.File(name))));
    };
    draw("red.png", {6, 30}, kRed);
    draw("left.png", {3, 30}, "#0000ff");
    draw("right.png", {5, 30}, "#ff00ff");
    for (std::size_t i = 0; i < 4; ++i)
      draw(ButtonImagePaths("state.png")[i], {12, 20}, kStateColors[i]);
    const std::set<std::string> states = {kImageRadio, kImageSliderThumb};
    const auto value = [=](auto, auto key) -> std::string {
      if (states.contains(key)) return "state.png";
      return strstr(key, "_LEFT") ? "left.png" : strstr(key, "_RIGHT") ? "right.png" : "red.png";
    };
    return {{{}, value}, HostConfig(registry_)};
  }
  static std::string At(QWidget& control, int x, int y) {
    return control.grab().toImage().pixelColor(x, y).name().toStdString();
  }

  // The colours along the line of pixels from one on the left or upper edge, with their lengths.
  static std::string Runs(const QPixmap& pixels, QPoint at) {
    const QImage image = pixels.toImage();
    const QPoint step = at.x() == 0 ? QPoint(1, 0) : QPoint(0, 1);
    QString runs;
    for (int length = 1; image.valid(at); at += step, ++length) {
      const QString color = image.pixelColor(at).name();
      if (image.valid(at + step) && image.pixelColor(at + step).name() == color) continue;
      runs += QString(" %1%2%3:%4").arg(color[1]).arg(color[3]).arg(color[5]).arg(length);
      length = 0;
    }
    return runs.mid(1).toStdString();
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const Skin skin_ = DrawSkin();
  CButtonEx button_{folder_.File("state.png"), nullptr};
  CVxRadioButton radio_{skin_, kSectionPanel, kImageRadio, nullptr};
  CVxSlider slider_{skin_, nullptr};
  CVxEdit edit_{skin_, nullptr};
  CVxComboBox box_{skin_, ComboLook::Toolbar, nullptr};
  QWidget* const all_[5] = {&button_, &radio_, &slider_, &edit_, &box_};
};

TEST_F(Controls, ButtonsAndThumbShowTheImageOfTheirState) {
  const std::tuple<QWidget*, int, std::function<void(bool)>> kControls[] = {
      {&button_, 1, [&](bool isDown) { button_.setDown(isDown); }},
      {&radio_, 11, [&](bool isDown) { radio_.setDown(isDown); }},
      {&slider_, 15, [&](bool isDown) { slider_.setSliderDown(isDown); }}};
  for (const auto& [control, y, press] : kControls) {
    for (int state = kButtonNormal; state <= kButtonDisabled; ++state) {
      control->setAttribute(Qt::WA_UnderMouse, state != kButtonNormal);
      press(state == kButtonPressed);
      control->setEnabled(state != kButtonDisabled);
      EXPECT_EQ(At(*control, 9, y), kStateColors[state]) << control->metaObject()->className();
    }
  }
}

TEST_F(Controls, AreDrawnFromTheirPiecesAndPalerWhenTheyAreDisabled) {
  // The control, a pixel on its left or upper edge, the line from there, and the disabled one.
  const std::tuple<QWidget&, QPoint, const char*, const char*> kLines[] = {
      {edit_, {0, 20}, "00f:3 f00:104 f0f:5", "007:3 700:104 707:5"},
      {box_, {0, 20}, "00f:3 f00:104 f0f:5", "007:3 700:104 707:5"},
      {slider_, {0, 20}, "00f:3 f00:34 fff:12 f00:58 f0f:5", "007:3 700:34 888:12 700:58 707:5"},
      {slider_, {100, 0}, "000:5 f00:30 000:5", "000:5 700:30 000:5"},
      {slider_, {40, 0}, "000:5 f00:5 fff:20 f00:5 000:5", "000:5 700:5 888:20 700:5 000:5"},
      {radio_, {0, 20}, "000:3 fff:12 000:97", "000:3 070:12 000:97"},
      {radio_, {5, 0}, "000:10 fff:20 000:10", "000:10 070:20 000:10"}};
  QPalette black(Qt::black);
  black.setColor(QPalette::Base, Qt::transparent);
  radio_.setAutoExclusive(false);
  slider_.setRange(0, 100), slider_.setValue(37);
  for (const auto& [control, at, enabled, disabled] : kLines) {
    control.setPalette(black), control.resize(112, 40);
    EXPECT_EQ(Runs(control.grab(), at), enabled);
    control.setEnabled(false), radio_.setChecked(true);
    EXPECT_EQ(Runs(control.grab(), at), disabled);
    control.setEnabled(true), radio_.setChecked(false);
  }
  // The border of a button's image keeps its width, and the rest is stretched.
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(Qt::red);
  QPainter(&image).fillRect(6, 6, 8, 8, Qt::blue);
  image.save(QString::fromStdString(folder_.File("edge.png")));
  CButtonEx button(folder_.File("edge.png"), nullptr);
  button.resize(50, 40);
  EXPECT_EQ(Runs(button.grab(), {0, 20}), "f00:6 00f:38 f00:6");
  EXPECT_EQ(Runs(button.grab(), {25, 0}), "f00:6 00f:28 f00:6");
}

TEST_F(Controls, APaneFrameSurroundsTheViewBelowTheToolbar) {
  const auto piece = [](int width, Qt::GlobalColor color) {
    QPixmap image(width, 4);
    return image.fill(color), image;
  };
  const ThreePieces strip{piece(2, Qt::blue), piece(4, Qt::red), piece(3, Qt::green)};
  QPixmap pane(40, 30);
  QPainter painter(&pane);
  const PaneFrame frame{Qt::white,          Qt::black, strip, piece(2, Qt::yellow),
                        piece(3, Qt::cyan), strip};
  DrawPaneFrame(painter, pane.rect(), 9, frame);
  DrawThreePieces(painter, {30, 18, 4, 2}, strip);  // narrower than its ends
  EXPECT_EQ(ViewArea(pane.rect(), 9), QRect(6, 10, 28, 14));
  EXPECT_EQ(Runs(pane, {20, 0}), "f00:9 000:1 fff:14 000:1 fff:1 f00:4");
  EXPECT_EQ(Runs(pane, {0, 15}), "ff0:2 fff:3 000:1 fff:28 000:1 fff:2 0ff:3");
  EXPECT_EQ(Runs(pane, {0, 19}), "ff0:2 fff:3 000:1 fff:24 00f:1 0f0:3 000:1 fff:2 0ff:3");
  for (const int y : {4, 28}) EXPECT_EQ(Runs(pane, {0, y}), "00f:2 f00:35 0f0:3");
}

TEST_F(Controls, HaveRoomForTheirTextsWhichARadioButtonIsChosenBy) {
  const QSize word = radio_.fontMetrics().size(Qt::TextShowMnemonic, "&word");
  EXPECT_EQ(CButtonEx("", nullptr).sizeHint(), QSize(24, 24));
  radio_.setText("&word"), button_.setText("&word");
  EXPECT_EQ(button_.sizeHint(), (word + QSize(24, 6)).expandedTo({12, 20}));
  EXPECT_EQ(radio_.sizeHint(), QSize(24 + word.width(), 26));
  for (const int x : {24, 23}) {
    QTest::mouseClick(&radio_, Qt::LeftButton, {}, QPoint(x + word.width(), 10));
    EXPECT_EQ(radio_.isChecked(), x == 23);
  }
  EXPECT_EQ(edit_.textMargins(), QMargins(3, 0, 5, 0));
  for (int i = 2; i < 5; ++i) EXPECT_EQ(all_[i]->sizeHint().height(), 30);
}

TEST_F(Controls, TakeTheTabKeyAndShowTheFocusAsARingInTheColorOfLinks) {
  const int kInsets[] = {2, 0, 0, 1, 1};
  for (int i = 0; i < 5; ++i) {
    QWidget& control = *all_[i];
    EXPECT_TRUE(control.focusPolicy() & Qt::TabFocus);
    const std::string ring = control.palette().color(QPalette::Link).name().toStdString();
    control.show(), control.activateWindow(), control.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return control.hasFocus(); }));
    EXPECT_EQ(At(control, kInsets[i], 10), ring) << i;
  }
}

TEST_F(Controls, FieldsTakeATextOfAnyLengthOnOneLine) {
  box_.addItem(QString(500, 'W'));
  EXPECT_EQ(box_.sizeHint(), CVxComboBox(skin_, ComboLook::Toolbar, nullptr).sizeHint());
  edit_.insert(QString(100'000, QChar(0xAC00)));
  EXPECT_EQ(edit_.text().size(), 100'000);
  edit_.clear();
  edit_.insert(QStringLiteral(" \u200B one\r\ntwo\nthree\u2028\u2029 "));
  EXPECT_EQ(edit_.TrimmedText(), "one  two three");
  edit_.ShowOnly(edit_.text());
  EXPECT_EQ(At(edit_, 0, 15), At(radio_, 0, 0)) << "no field any more";
  for (int i = 0; i < 60; ++i) box_.addItem("x");
  box_.show();
  box_.showPopup();
  EXPECT_LE(box_.view()->window()->height(), 10 * box_.height());
}

TEST_F(Controls, TheThumbIsDraggedFromWhereItIsOrBroughtToThePointer) {
  slider_.setRange(0, 100);  // a pixel each
  slider_.setValue(37);
  const auto drag = [&](int from, int to, Qt::MouseButton button) {
    QTest::mousePress(&slider_, button, {}, QPoint(from, 15));
    const int pressed = slider_.value();
    QTest::mouseMove(&slider_, QPoint(to, 15));
    QTest::mouseRelease(&slider_, button, {}, QPoint(to, 15));
    QTest::mouseMove(&slider_, QPoint(1, 15));
    return std::pair(pressed, slider_.value());
  };
  EXPECT_EQ(drag(46, 66, Qt::RightButton), std::pair(37, 37));
  EXPECT_EQ(drag(37, 40, Qt::LeftButton), std::pair(37, 40));
  EXPECT_EQ(drag(86, 500, Qt::LeftButton), std::pair(80, 100));
}

TEST_F(Controls, AButtonIsPressedByClickSpaceAndEnterOnceEach) {
  const QSignalSpy clicks(&button_, &QAbstractButton::clicked);
  QTest::mouseClick(&button_, Qt::LeftButton);
  QTest::keyClicks(&button_, " \r");
  QTest::keyClick(&button_, Qt::Key_Enter);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&button_, &held);
  EXPECT_EQ(clicks.count(), 4);
  button_.setCheckable(true);
  QTest::keyClick(&button_, Qt::Key_Return);
  EXPECT_FALSE(button_.isChecked()) << "Enter is its window's";
  QTest::keyClick(&button_, Qt::Key_Space);
  EXPECT_EQ(At(button_, 9, 1), kStateColors[kButtonPressed]);
}

TEST_F(Controls, ButtonsWithoutTheirImagesBringOneWarning) {
  QWidget window;
  const std::string paths[] = {folder_.File("a.png"), folder_.File("b.png"), folder_.File("a.png")};
  const CButtonEx first(folder_.File("c.png"), &window);
  for (const std::string& path : paths) new CButtonEx(path, &window);
  QCoreApplication::processEvents();
  const auto warnings = window.findChildren<QMessageBox*>();
  ASSERT_EQ(warnings.size(), 1);
  EXPECT_EQ(warnings[0]->windowTitle() + ": " + warnings[0]->text(),
            "Warning: " + QString::fromStdString(folder_.File("c.png")) + " File not found!");
  EXPECT_EQ(warnings[0]->informativeText(), "Files missing besides: 2");
}

}  // namespace feedloom
