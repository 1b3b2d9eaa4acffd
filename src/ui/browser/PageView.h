#pragma once

#include <QWebEngineView>

namespace feedloom {

// The engine's view, which knows what the user does in it and keeps the keyboard. Interface thread.
class PageView : public QWebEngineView {
  Q_OBJECT

 signals:
  // The user has clicked or typed in the page.
  void Touched();

 protected:
  void childEvent(QChildEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  // What the user drags within the page the engine gets, except links and files, for which it would
  // leave the page. What comes from elsewhere is left to the widgets around the page.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  // Passes the keyboard on when the user has pressed Tab; else the page keeps it.
  bool focusNextPrevChild(bool next) override;

 private:
  void KeepKeyboard();
  bool IsFromPage(const QDropEvent& event) const;

  bool isTabPressed_ = false;  // the latest gesture was the key Tab, without or with Shift
};

}  // namespace feedloom
