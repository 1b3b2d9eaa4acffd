#pragma once

#include <memory>

#include "controls/CVxDialog.h"

class QLabel;

namespace feedloom {

class CVxEdit;
class CVxListCtrl;
class DirectoryModel;
class DirectorySearch;
class Desk;
class Subscribing;
struct DirectoryAnswer;

// Searches the web directory for feeds and adds those that the user chooses. Scrolling to the end
// of the list loads further results. While a search runs, the list takes no input and Escape
// cancels the search; otherwise Escape closes the dialog.
class CRSS_DirectoryDlg : public CVxDialog {
  Q_OBJECT

 public:
  CRSS_DirectoryDlg(Desk& desk, Subscribing& subscribing, QWidget* parent);
  ~CRSS_DirectoryDlg() override;

 protected:
  // Enter searches when the word has the focus, and adds the selected feed when the list has it.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void SetUpList();
  void LayOut();
  void Connect();
  void Search();
  void More();
  void Wait();
  void TakeAnswer(const DirectoryAnswer& answer);
  void GiveUp();
  void ShowResult();
  void EndWait(const QString& line);
  void Say(const QString& line);  // shows it, also to screen readers
  void UpdateAdd();
  void Add();
  // The feed address of the selected row; empty without a selection.
  std::string ChosenFeed() const;

  Desk& desk_;
  Subscribing& subscribing_;
  CVxEdit& word_;
  CButtonEx& searchButton_;
  DirectoryModel& model_;
  CVxListCtrl& list_;
  QLabel& line_;
  CButtonEx& add_;
  CButtonEx& close_;
  const std::unique_ptr<DirectorySearch> search_;
};

}  // namespace feedloom
