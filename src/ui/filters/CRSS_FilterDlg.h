#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/CVxDialog.h"
#include "ui/filters/StoredPosts.h"

class QLabel;
class QListView;
class QModelIndex;

namespace feedloom {

class Desk;
class RuleForm;
class RuleListModel;
struct FilterNames;

// Edits the filters: the list of rules, in the order in which they are applied, and the fields of
// the selected one, with the number of stored posts that it meets. OK stores all rules at once; a
// rule that is on and faulty is shown instead. Cancel changes nothing but what was applied to
// stored posts.
class CRSS_FilterDlg : public CVxDialog {
  Q_OBJECT

 public:
  // `toHere` passes work to the interface thread.
  CRSS_FilterDlg(Desk& desk, std::shared_ptr<Store> store, BackgroundJobs::Post toHere,
                 const FilterNames& names, std::vector<FilterRule> rules, QWidget* parent);

  void accept() override;

 private:
  void SetUpList();
  QWidget* ListSide();
  QWidget* RuleSide();
  void LayOut();
  void Connect();

  std::optional<int> Chosen() const;
  const FilterRule& RuleAt(int row) const;
  void Choose(int row);
  void ShowChosen();
  void TakeEdit();
  void Add();
  void Copy();
  void Remove();
  void Move(int steps);

  std::string CountText(int count) const;
  void BeginCount();
  void ShowCount(std::optional<int> count);
  void AskToApply();
  void Apply(const FilterRule& rule);
  void SetWorking(bool isWorking);
  void ShowSums(const std::optional<FilterSums>& sums);
  void Say(const QString& line);

  bool AreRulesRight();
  bool IsDeletingWanted();

  Desk& desk_;
  const std::vector<FilterRule> before_;
  RuleListModel& rules_;
  QListView& list_;
  RuleForm& form_;
  QLabel& line_;
  CButtonEx* copy_ = nullptr;
  CButtonEx* remove_ = nullptr;
  CButtonEx* apply_ = nullptr;
  const std::shared_ptr<Store> store_;
  StoredPosts posts_;
  QTimer count_;  // runs out when the events that have changed the rule are handled
  std::optional<int> counted_;
};

}  // namespace feedloom
