#pragma once

#include <QImage>
#include <QObject>
#include <QString>
#include <chrono>

#include "profile/Files.h"

class QWidget;

namespace feedloom {

// Selects the first row of the module's tree by a key press, saves a picture of the window as the
// PNG file `file`, and ends the event loop with the program's exit status: 0, or 1 after an error
// message on stderr. Interface thread.
class Screenshot : public QObject {
  Q_OBJECT

 public:
  Screenshot(QWidget& window, QWidget& frame, QString file);

  // Waits at most `limit` for the frame's pages. Fails when the frame has no signal PageShown().
  // Call this before the event loop shows the frame.
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
  QImage lastPicture_;  // the selected row's page, as last compared
  int comparisons_ = 0;
};

}  // namespace feedloom
