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

// A radio button by the keys of its text and of its place on the page.
struct RadioChoice {
  const char* textKey;
  const char* placeKey;
};

// One page of the control panel: it shows some of the settings and reads them back. A derived
// page's constructor adds its controls in reading order, which the Tab key follows, and calls
// Arrange() last. Keys of places are those of kSectionPanel.
class CtrlPanelPage : public QWidget {
  Q_OBJECT

 public:
  virtual void Show(const Settings& settings) = 0;
  // Puts what the page edits into `settings`. A value that no control of the page stands for stays
  // as it is.
  virtual void Read(Settings& settings) const = 0;

  // Gives the keyboard to the first control: the chosen one of the first radio buttons.
  void FocusFirst();

 protected:
  CtrlPanelPage(const Skin& skin, QWidget* parent);

  const Skin& GetSkin() const { return skin_; }

  // Each control becomes a child of the page.
  void Add(QWidget* control, const char* placeKey);
  void AddAt(const QRect& place, QWidget* control);
  QLabel* AddHeading(const char* textKey, const char* placeKey);
  QLabel* AddText(const QString& text, const char* placeKey);
  // A thin line along the middle of its place; none without a place.
  void AddLine(const char* placeKey);
  // Adds a radio button to `group`; its id there is the next number, from 0.
  CVxRadioButton* AddRadio(QButtonGroup& group, const RadioChoice& choice);
  // A new group without a button in it.
  QButtonGroup* NewGroup();
  // A group of its own under a heading, which a screen reader tells with each.
  QButtonGroup* AddRadios(QLabel& heading, std::span<const RadioChoice> choices);

  void Arrange();

 private:
  const Skin& skin_;
  QButtonGroup* firstGroup_ = nullptr;
  std::vector<QWidget*> controls_;
  std::vector<QRect> places_;  // the skin's, of each control
};

// A label that shows `text` as it is, without markup.
QLabel* MakeLabel(const QString& text, QWidget* parent);

// Chooses the radio button with this id; none when there is no such.
void Choose(QButtonGroup& group, int id);
// Sets `value` to the id of the chosen radio button; leaves it alone when none is chosen.
void ReadChoice(const QButtonGroup& group, int& value);

}  // namespace feedloom
