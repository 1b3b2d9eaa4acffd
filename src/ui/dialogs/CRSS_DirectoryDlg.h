#pragma once

#include <memory>

#include "vxctrl/CVxDialog.h"

class QLabel;

namespace feedloom {

class CVxEdit;
class CVxListCtrl;
class DirectoryModel;
class DirectorySearch;
class Frame;
struct DirectoryAnswer;

// Searches the web directory for feeds and has those that the user chooses added. Further results
// come when the list is scrolled to its end. While a search runs the list is closed; Escape gives
// it up, and closes the dialog when none runs.
class CRSS_DirectoryDlg : public CVxDialog {
  Q_OBJECT

 public:
  CRSS_DirectoryDlg(Frame& frame, QWidget* parent);
  ~CRSS_DirectoryDlg() override;

 protected:
  // Enter does what belongs to the control with the keyboard.
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
  void Say(const QString& line);  // also to a screen reader
  void UpdateAdd();
  void Add();
  // Of the selected row; empty without one.
  std::string ChosenFeed() const;

  Frame& frame_;
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
