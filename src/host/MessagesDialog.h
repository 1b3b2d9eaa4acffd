#pragma once

#include <QDialog>

class QTreeWidget;

namespace feedloom {

class MessageLog;

// Lists the messages of a log as long as it is open, beside the window: when, how often, what, and
// whether that was a failure. Ctrl+C copies the selected lines as text. Deletes itself when it is
// closed. Interface thread.
class MessagesDialog : public QDialog {
  Q_OBJECT

 public:
  // `log` must outlive the object.
  MessagesDialog(const MessageLog& log, QWidget* parent);

 private:
  void Fill();
  void Copy() const;

  const MessageLog& log_;
  QTreeWidget& list_;
};

}  // namespace feedloom
