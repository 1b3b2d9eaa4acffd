#pragma once

#include <QLineEdit>

#include "vxctrl/SkinPieces.h"

namespace feedloom {

class Skin;

// The skinned edit box of one line: the toolkit's own on three pieces of the skin, without a limit
// of length. Line breaks that are pasted become blanks. Without the skin's pieces it looks as the
// desktop's do.
class CVxEdit : public QLineEdit {
  Q_OBJECT

 public:
  CVxEdit(const Skin& skin, QWidget* parent);

  // Without what cannot be seen at its two ends.
  QString TrimmedText() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ThreePieces pieces_;
};

}  // namespace feedloom
