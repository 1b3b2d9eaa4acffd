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
  // Passes the keyboard on when the user has pressed Tab; else the page keeps it.
  bool focusNextPrevChild(bool next) override;

 private:
  void KeepKeyboard();

  bool isTabPressed_ = false;  // the latest gesture was the key Tab, without or with Shift
};

}  // namespace feedloom
