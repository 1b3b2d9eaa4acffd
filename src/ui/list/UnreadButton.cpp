#include "ui/list/UnreadButton.h"

#include <QPainter>
#include <QToolButton>

#include "look/SkinDrawing.h"
#include "look/SkinText.h"
#include "skin/Skin.h"
#include "ui/CommandKeys.h"
#include "ui/list/PostDelegate.h"

namespace feedloom {
namespace {

constexpr QSize kSize(24, 24);
constexpr double kRounding = 4;

class UnreadButton : public QAbstractButton {
 public:
  explicit UnreadButton(QWidget* parent) : QAbstractButton(parent) {
    setAttribute(Qt::WA_Hover);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
  }

  QSize sizeHint() const override { return kSize; }

 protected:
  // Checked, it has the colours of a selected row.
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isOn = isChecked() || isDown();
    const QRectF face = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    if (isOn || underMouse()) {
      painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
      painter.setBrush(isOn ? palette().brush(QPalette::Highlight) : Qt::NoBrush);
      painter.drawRoundedRect(face, kRounding, kRounding);
    }
    DrawUnreadMark(painter, face.center(),
                   palette().color(isOn ? QPalette::HighlightedText : QPalette::WindowText));
    if (hasFocus()) DrawSkinFocus(painter, palette(), rect(), 0);
  }
};

}  // namespace

QAbstractButton* MakeUnreadButton(const Skin& skin, QWidget* parent) {
  auto* const button = new UnreadButton(parent);
  button->setAccessibleName(SkinText(skin, kLabelUnreadOnly));
  const QKeySequence key = KeysOf(kCommandUnreadOnly).value(0);
  button->setToolTip(button->accessibleName() + " (" + key.toString(QKeySequence::NativeText) +
                     ")");
  return button;
}

}  // namespace feedloom
