#include "controls/VxSplitter.h"

#include <QKeyEvent>
#include <QPainter>

#include "controls/AccessibleRole.h"
#include "look/SkinDrawing.h"

namespace feedloom {
namespace {

constexpr int kStep = 16;  // pixels

class Handle : public QSplitterHandle {
 public:
  explicit Handle(VxSplitter* splitter)
      : QSplitterHandle(splitter->orientation(), splitter), splitter_(*splitter) {
    SetAccessibleRole(*this, QAccessible::Separator);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool isBetweenColumns = orientation() == Qt::Horizontal;
    const int place = isBetweenColumns ? x() : y();
    switch (event->key()) {
      case Qt::Key_Left:
      case Qt::Key_Up:
        return moveSplitter(place - kStep);
      case Qt::Key_Right:
      case Qt::Key_Down:
        return moveSplitter(place + kStep);
      case Qt::Key_Home:
        return moveSplitter(0);
      case Qt::Key_End:
        return moveSplitter(isBetweenColumns ? splitter_.width() : splitter_.height());
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Escape:
        emit splitter_.HandleLeft();
        return;
      default:
        return QSplitterHandle::keyPressEvent(event);
    }
  }

  void focusInEvent(QFocusEvent* event) override {
    QSplitterHandle::focusInEvent(event);
    update();
  }

  void focusOutEvent(QFocusEvent* event) override {
    QSplitterHandle::focusOutEvent(event);
    update();
  }

  // The handle is too narrow for the ring alone to be noticed.
  void paintEvent(QPaintEvent* event) override {
    QSplitterHandle::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.fillRect(rect(), palette().highlight());
    DrawSkinFocus(painter, palette(), rect(), 0);
  }

 private:
  VxSplitter& splitter_;
};

}  // namespace

QSplitterHandle* VxSplitter::createHandle() { return new Handle(this); }

}  // namespace feedloom
