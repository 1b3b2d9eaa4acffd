#pragma once

#include <QProgressBar>
#include <QVariantAnimation>

namespace feedloom {

// Says that something is under way, nobody knows for how long: a mark in the colour of the focus
// ring runs through the bar as long as it can be seen. Interface thread.
class BusyBar : public QProgressBar {
  Q_OBJECT

 public:
  explicit BusyBar(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QVariantAnimation run_;  // 0 to 1, over and over
};

}  // namespace feedloom
