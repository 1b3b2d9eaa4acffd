#pragma once

#include <QWidget>
#include <vector>

#include "filter/FilterRule.h"

class QLabel;
class QToolButton;

namespace feedloom {

class CVxComboBox;
class CVxEdit;
class Skin;

// The controls of one condition: field, test, text, and a button that removes it. What is wrong
// with it stands below them while the user types, and is the text's description for screen
// readers. Interface thread only.
class ConditionRow : public QWidget {
  Q_OBJECT

 public:
  ConditionRow(const Skin& skin, const FilterCondition& condition, QWidget* parent);

  FilterCondition Condition() const;
  // The controls in the order of the Tab key.
  std::vector<QWidget*> Stops() const;
  // Gives the text the keyboard.
  void FocusText();

 signals:
  void Edited();
  void RemoveWanted();

 private:
  void SetUp(const FilterCondition& condition);
  void LayOut();
  void Check();

  const Skin& skin_;
  CVxComboBox& field_;
  CVxComboBox& test_;
  CVxEdit& text_;
  QToolButton& remove_;
  QLabel& fault_;
};

}  // namespace feedloom
