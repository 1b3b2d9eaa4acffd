// The control panel over a parent, as a user meets it.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QSlider>
#include <QStackedWidget>
#include <QTest>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "ui/FakeFrame.h"
#include "ui/panel/ControlPanel.h"
#include "ui/panel/CtrlPanelPage.h"
#include "vxctrl/CButtonEx.h"
#include "vxctrl/CVxRadioButton.h"
#include "vxctrl/DialogAnswers.h"

namespace feedloom {

// A frame with a skin of its own.
class SkinnedFrame : public FakeFrame {
 public:
  explicit SkinnedFrame(Skin skin_) : otherSkin(std::move(skin_)) {}
  const Skin& GetSkin() const override { return otherSkin; }

  const Skin otherSkin;
};

class PanelFixture : public testing::Test {
 protected:
  // Edits `stored`; each deed is done to the panel when it waits for the user.
  std::optional<Settings> Edit(const Settings& stored, DialogAnswers::Deed deed) {
    return Edit(frame, stored, std::move(deed));
  }
  std::optional<Settings> Edit(Frame& in, const Settings& stored, DialogAnswers::Deed deed) {
    answers.Next(std::move(deed));
    return EditSettings(in, parent.get(),
                        {.load = [&] { return stored; },
                         .save = [this](const Settings& settings) { saved.push_back(settings); }});
  }

  static QStackedWidget& Pages(QDialog& panel) { return *panel.findChild<QStackedWidget*>(); }
  static CButtonEx& Tab(QDialog& panel, int page) {
    return *panel.findChildren<CButtonEx*>()[page];
  }
  static void OpenTab(QDialog& panel, int page) {
    QTest::mouseClick(&Tab(panel, page), Qt::LeftButton);
  }
  // The radio button of the page, counted in reading order from 0.
  static CVxRadioButton& Radio(QDialog& panel, int page, int radio) {
    return *Pages(panel).widget(page)->findChildren<CVxRadioButton*>()[radio];
  }
  static QLineEdit& Days(QDialog& panel) { return *panel.findChild<QLineEdit*>(); }
  static QSlider& Slider(QDialog& panel) { return *panel.findChild<QSlider*>(); }

  static void ClickRadio(QDialog& panel, int page, int radio) {
    OpenTab(panel, page);
    QTest::mouseClick(&Radio(panel, page, radio), Qt::LeftButton, {}, QPoint(10, 10));
  }
  static void TypeDays(QDialog& panel, const QString& text) {
    Days(panel).selectAll();
    QTest::keyClick(&Days(panel), Qt::Key_Delete);
    QTest::keyClicks(&Days(panel), text);
  }
  static void Press(QDialog& panel, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(panel.focusWidget(), key, modifiers);
  }

  FakeFrame frame;
  std::unique_ptr<QWidget> parent = std::make_unique<QWidget>();
  DialogAnswers answers;
  std::vector<Settings> saved;
};

}  // namespace feedloom
