#pragma once

#include <QWidget>

namespace feedloom {

// The module's parent: the place of its frame, and the receiver of its messages.
class ModulePane : public QWidget {
  Q_OBJECT

 public:
  explicit ModulePane(QWidget* parent);

  // Gives all of the pane to `frame`.
  void Fill(QWidget* frame);

 signals:
  // The module has a text for the user.
  void TextReported(const QString& text);

 protected:
  bool event(QEvent* event) override;
};

}  // namespace feedloom
