#pragma once

#include <QWidget>

#include "vxctrl/SkinPieces.h"

class QLabel;

namespace feedloom {

class CVxEdit;
class Skin;

// The strip below the page with which the user looks for a word in it. Hidden at first.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  FindBar(const Skin& skin, QWidget* parent);

  // Shows the bar; the keyboard goes to the word, which is selected.
  void Open();
  // Hides it, when it is shown: Wanted with an empty word, then Closed.
  void Close();

  // The number of the place that is shown, counted from 1, and of all places; shown unless the word
  // is empty.
  void SetResult(int active, int all);

 signals:
  // The word was typed, or Enter or a button asks for the next place or the one before it.
  void Wanted(const QString& word, bool backward);
  void Closed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void Ask(bool backward);
  void ShowResult(const QString& text);

  const Skin& skin_;
  const ThreePieces background_;
  CVxEdit* word_;
  QLabel* result_;
};

}  // namespace feedloom
