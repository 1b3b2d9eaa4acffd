#pragma once

#include <QImage>
#include <QObject>
#include <QString>
#include <chrono>

#include "profile/Files.h"

class QWidget;

namespace feedloom {

// Takes a picture of the window with the first row of the module's tree chosen, the way a user
// chooses it, and ends the event loop with the program's exit status: 0, or 1 after a message.
class Screenshot : public QObject {
  Q_OBJECT

 public:
  Screenshot(QWidget& window, QWidget& frame, QString file);

  // Waits at most `limit` for the pages of `frame`. Fails when it does not tell of its pages. To be
  // called before the event loop shows the frame.
  [[nodiscard]] Failure Start(std::chrono::milliseconds limit = std::chrono::seconds(30));

 private slots:
  void OnPageShown();

 private:
  void LookForChange();
  void Leave(const Failure& failure);

  QWidget& window_;
  QWidget& frame_;
  const QString file_;
  bool isRowChosen_ = false;
  QImage lastPicture_;  // of the page that the row has led to
  int looks_ = 0;
};

}  // namespace feedloom
