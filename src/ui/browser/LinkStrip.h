#pragma once

#include <QLabel>

class QUrl;

namespace feedloom {

// A strip over the lower edge of its parent, which shows where a link leads. Hidden without a link.
// Interface thread.
class LinkStrip : public QLabel {
  Q_OBJECT

 public:
  explicit LinkStrip(QWidget* parent);

  // Shows `link` as DisplayAddress does, shortened to the parent's width; hides for an empty one.
  void Show(const QUrl& link);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace feedloom
