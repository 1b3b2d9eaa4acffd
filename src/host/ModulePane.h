#pragma once

#include <QWidget>

namespace feedloom {

// The parent of the module's frame. It receives the module's messages.
class ModulePane : public QWidget {
  Q_OBJECT

 public:
  explicit ModulePane(QWidget* parent);

  // Adds `frame` to the layout, which lets it fill the pane.
  void Fill(QWidget* frame);

 signals:
  // The module has sent a text for the user.
  void TextReported(const QString& text);
  // The text that was reported last tells of a failure.
  void FailureReported();
  // The module offers to undo what is called `step`; an empty text: no longer.
  void UndoOffered(const QString& step);

 protected:
  bool event(QEvent* event) override;
};

}  // namespace feedloom
