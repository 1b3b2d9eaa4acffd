#include "controls/CVxComboBox.h"

#include <QApplication>
#include <QListView>
#include <QPainter>
#include <QProxyStyle>

#include "look/SkinDrawing.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr int kEntryGap = 2;    // around an entry of the list
constexpr int kTextMargin = 2;  // between the text and the outer pieces, as in an edit box

// The desktop's style, but a long list is scrolled below its box: some styles would give it the
// height of the screen.
class ShortList : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
  }
};

ThreePieces LoadPieces(const Skin& skin, ComboLook look) {
  if (look == ComboLook::Toolbar) {
    return LoadThreePieces(skin, kSectionControls, kImageComboLeft, kImageComboMiddle,
                           kImageComboRight);
  }
  return LoadThreePieces(skin, kSectionControls, kImagePopUpComboLeft, kImagePopUpComboMiddle,
                         kImagePopUpComboRight);
}

}  // namespace

CVxComboBox::CVxComboBox(const Skin& skin, ComboLook look, QWidget* parent)
    : QComboBox(parent), pieces_(LoadPieces(skin, look)) {
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  auto* const style = new ShortList(QApplication::style()->name());
  style->setParent(this);
  setStyle(style);
  if (auto* const list = qobject_cast<QListView*>(view())) list->setSpacing(kEntryGap);
}

QSize CVxComboBox::sizeHint() const {
  return QComboBox::sizeHint().expandedTo({0, SizeOf(pieces_.middle).height()});
}

QSize CVxComboBox::minimumSizeHint() const {
  return QComboBox::minimumSizeHint().expandedTo({0, SizeOf(pieces_.middle).height()});
}

void CVxComboBox::paintEvent(QPaintEvent* event) {
  if (pieces_.middle.isNull()) return QComboBox::paintEvent(event);
  QPainter painter(this);
  DrawSkinField(painter, *this, pieces_);
  const QRect area = rect().adjusted(SizeOf(pieces_.left).width() + kTextMargin, 0,
                                     -SizeOf(pieces_.right).width() - kTextMargin, 0);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(currentText(), Qt::ElideRight, area.width()));
}

}  // namespace feedloom
