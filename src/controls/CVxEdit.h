#pragma once

#include <QLineEdit>

#include "look/SkinPieces.h"

namespace feedloom {

class Skin;

// An edit box of one line, drawn with three images of the skin, without a maximum length. Pasted
// line breaks become blanks. Without the images it is drawn in the desktop's style.
class CVxEdit : public QLineEdit {
  Q_OBJECT

 public:
  CVxEdit(const Skin& skin, QWidget* parent);

  // Makes it a place from which `text` can be read and copied, in as much room as it needs, up to a
  // limit. It does not look as if it could be edited.
  void ShowOnly(const QString& text);

  // The text without white space and format characters (Unicode category Cf) at its ends.
  QString TrimmedText() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  // Files are left to the widgets around it.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const ThreePieces pieces_;
};

}  // namespace feedloom
