#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "filter/FilterRule.h"

class QCheckBox;
class QLabel;
class QLayout;
class QToolButton;
class QVBoxLayout;

namespace feedloom {

class ConditionRow;
class CVxComboBox;
class CVxEdit;
class Skin;
struct FilterNames;

// Draws the outlines of check boxes, and of the frame, of `widget` in the skin's colour of lines:
// the toolkit's own are derived from the ground, and cannot be seen on a dark one.
void ShowOutline(const Skin& skin, QWidget& widget);

// The fields of one rule. Interface thread only.
class RuleForm : public QWidget {
  Q_OBJECT

 public:
  RuleForm(const Skin& skin, const FilterNames& names, QWidget* parent);

  // Shows the rule, without Edited(); without a rule the fields are disabled.
  void Show(const std::optional<FilterRule>& rule);
  // The rule as the user has edited it.
  FilterRule Rule() const;
  // Give the keyboard to the name, and to the text of the first condition that is faulty.
  void FocusName();
  void FocusFault();

 signals:
  void Edited();

 private:
  void Fill(const FilterNames& names);
  void LayOut();
  QWidget* ConditionArea();
  QLayout* DeedRow();
  void Connect();
  void AddCondition(const FilterCondition& condition);
  void RemoveCondition(ConditionRow* row);
  void ClearConditions();
  void OrderStops();
  void OnEdit();

  const Skin& skin_;
  FilterRule shown_;
  bool isShowing_ = false;  // the fields change without the user
  CVxEdit& name_;
  CVxComboBox& place_;
  QVBoxLayout& conditionColumn_;
  std::vector<ConditionRow*> conditions_;
  QToolButton& addCondition_;
  QCheckBox& marksRead_;
  QCheckBox& deletes_;
  CVxComboBox& cabinet_;
  CVxComboBox& notice_;
  QLabel& caution_;
};

}  // namespace feedloom
