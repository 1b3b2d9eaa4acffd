#pragma once

#include <QWidget>
#include <span>
#include <vector>

#include "ui/Settings.h"
#include "ui/panel/PanelPlaces.h"

class QAbstractButton;
class QButtonGroup;
class QLabel;

namespace feedloom {

class CVxRadioButton;
class Skin;

// The keys of a radio button's text and of its place on the page.
struct RadioChoice {
  const char* textKey;
  const char* placeKey;
};

// Base class of the control panel's pages. The constructor of a derived class adds the controls in
// reading order, which is also the Tab order, and calls Arrange() last. Place keys belong to
// kSectionPanel.
class CtrlPanelPage : public QWidget {
  Q_OBJECT

 public:
  // Shows the page's part of `settings`.
  virtual void Show(const Settings& settings) = 0;
  // Writes the page's values into `settings`. A value that no control can show is left unchanged.
  virtual void Read(Settings& settings) const = 0;

  // Moves the focus to the checked radio button of the first group.
  void FocusFirst();

 protected:
  CtrlPanelPage(const Skin& skin, QWidget* parent);

  const Skin& GetSkin() const { return skin_; }

  // Add a control, which must be a child of the page, at the skin's place or at `place`.
  void Add(QWidget* control, const char* placeKey);
  void AddAt(const QRect& place, QWidget* control);
  QLabel* AddHeading(const char* textKey, const char* placeKey);
  QLabel* AddText(const QString& text, const char* placeKey);
  // Adds a separator line; none when the skin gives it no place.
  void AddLine(const char* placeKey);
  // Adds a radio button to `group`, with the next id of the group, starting at 0.
  CVxRadioButton* AddRadio(QButtonGroup& group, const RadioChoice& choice);
  // Makes an empty group. The page owns it.
  QButtonGroup* NewGroup();
  // Adds a group of radio buttons. Screen readers announce the heading with each of them.
  QButtonGroup* AddRadios(QLabel& heading, std::span<const RadioChoice> choices);

  // Places all controls (PanelPlaces.h) and sets the page's minimum size.
  void Arrange();

 private:
  const Skin& skin_;
  QButtonGroup* firstGroup_ = nullptr;
  std::vector<QWidget*> controls_;
  std::vector<QRect> places_;  // the skin's place of each control
};

// Makes a label that shows `text` as plain text.
QLabel* MakeLabel(const QString& text, QWidget* parent);

// Checks the radio button with this id; does nothing when there is none.
void Choose(QButtonGroup& group, int id);
// Sets `value` to the id of the checked radio button; leaves it unchanged when none is checked.
void ReadChoice(const QButtonGroup& group, int& value);

}  // namespace feedloom
