#pragma once

#include <QWidget>
#include <string>

#include "look/SkinPieces.h"
#include "text/CodePage.h"

class QAbstractButton;

namespace feedloom {

class CVxComboBox;
class CVxEdit;
class Skin;

// Where a search looks: in the web directory of feeds, in the titles of the store's posts, or in
// titles and texts, which only some hosts offer.
enum class SearchScope { Web = 0, Local = 1, Text = 2 };

// The toolbar above the list: the search scope, the search word, the button, the number of posts
// found, and at the right end the button that shows unread posts only. Its object name is
// "RSS_RightTopToolBar". Interface thread only.
class CRSS_RightTopToolBarWnd : public QWidget {
  Q_OBJECT

 public:
  // `skin` must outlive the toolbar.
  CRSS_RightTopToolBarWnd(const Skin& skin, QWidget* parent);

  // The size from the skin in pixels.
  QSize sizeHint() const override { return size_; }
  int Height() const { return size_.height(); }

  // The search word in the module's code page; may be empty.
  std::string Word() const;
  SearchScope Scope() const;
  // Chooses a scope; does nothing when `scope` is none, or cannot be chosen.
  void SetScope(int scope);

  // Shows the number of posts that a search has found, with a "+" when it has found more, or that
  // it has found none. A negative count shows nothing.
  void SetResultCount(int count, bool hasMore = false);
  // Shows whether only unread posts are shown.
  void SetUnreadOnly(bool isOn);
  // Moves the keyboard focus to the word and selects it.
  void FocusWord();

 signals:
  // The user clicked the button or pressed Enter in the edit box.
  void SearchRequested();
  // The user wants only unread posts to be shown, or all.
  void UnreadOnlyWanted(bool isOn);
  // The user pressed Escape in the edit box. The receiver moves the focus back to the list.
  void EscapePressed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  // The room that the result needs beside the button, in pixels.
  int ResultWidth() const;

  const Skin& skin_;
  const QSize size_;
  const ThreePieces background_;
  CVxComboBox& scope_;
  CVxEdit& word_;
  QAbstractButton& button_;
  QAbstractButton& unread_;
  QString resultText_;          // empty without a count
  bool isResultShown_ = false;  // as a whole: a part of a number would be another number
};

}  // namespace feedloom
