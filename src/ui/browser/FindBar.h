#pragma once

#include <QWidget>

#include "look/SkinPieces.h"

class QLabel;

namespace feedloom {

class CVxEdit;
class Skin;

// The bar below the page that finds a word in it. Hidden at first. Interface thread.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  FindBar(const Skin& skin, QWidget* parent);

  // Shows the bar, moves the focus to the word and selects it.
  void Open();
  // Hides the bar and emits Wanted with an empty word, then Closed. Does nothing when it is hidden.
  void Close();

  // Shows the number of the current match, counted from 1, and the number of all matches; shows
  // nothing when the word is empty.
  void SetResult(int active, int all);

 signals:
  // The user has typed the word, or asked for the next match or, with `backward`, the previous one.
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
