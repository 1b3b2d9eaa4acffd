#pragma once

#include <QWidget>
#include <string>

#include "platform/CodePage.h"
#include "vxctrl/SkinPieces.h"

class QAbstractButton;

namespace feedloom {

class CVxComboBox;
class CVxEdit;
class Skin;

// Where to search: the feed directory in the web, or the posts of the store.
enum class SearchScope { Web = 0, Local = 1 };

// The strip above the list with the search box: scope, word and button, and behind them how many
// posts a search has found. Its object name is "RSS_RightTopToolBar". `skin` outlives it.
class CRSS_RightTopToolBarWnd : public QWidget {
  Q_OBJECT

 public:
  CRSS_RightTopToolBarWnd(const Skin& skin, QWidget* parent);

  // What the skin gives it, in pixels.
  QSize sizeHint() const override { return size_; }
  int Height() const { return size_.height(); }

  // In the module's code page; may be empty.
  std::string Word() const;
  SearchScope Scope() const;

  // Shown when it is 1 or more; -1 is no count.
  void SetResultCount(int count);
  // The keyboard goes to the word, which is selected.
  void FocusWord();

 signals:
  // The button, or Enter in the edit box.
  void SearchRequested();
  // Escape in the edit box: the keyboard is to go back where it was.
  void WordLeft();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const Skin& skin_;
  const QSize size_;
  const ThreePieces background_;
  CVxComboBox& scope_;
  CVxEdit& word_;
  QAbstractButton& button_;
  QString resultText_;  // empty without a count
};

}  // namespace feedloom
