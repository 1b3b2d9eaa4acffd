#include "ui/list/CRSS_RightTopToolBarWnd.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "controls/AccessibleRole.h"
#include "controls/CButtonEx.h"
#include "controls/CVxComboBox.h"
#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "look/SkinFont.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr QSize kDefaultSize(508, 40);  // used when the skin has no size

constexpr int kEdge = 8;  // margin left and right of the controls
constexpr int kGap = 4;   // between the controls
constexpr int kScopeWidth = 84;
constexpr int kMinScopeWidth = 40;
constexpr int kWordWidth = 172;
constexpr int kMinWordWidth = 40;

constexpr QPoint kResultPlace(312, 13);
constexpr int kResultPixels = 12;

CVxComboBox* MakeScopeBox(const Skin& skin, QWidget* parent) {
  auto* scope = new CVxComboBox(skin, ComboLook::Toolbar, parent);
  scope->addItem(SkinText(skin, kLabelScopeWeb));
  scope->addItem(SkinText(skin, kLabelScopeLocal));
  scope->setToolTip(SkinText(skin, kTextSearchScope));
  // Qt's accessible name of a combo box is its current text, so the hidden label carries the name.
  auto* const label = new QLabel(scope->toolTip(), parent);
  label->setBuddy(scope);
  label->hide();
  return scope;
}

CVxEdit* MakeWordBox(const Skin& skin, QWidget* parent) {
  auto* word = new CVxEdit(skin, parent);
  word->setAccessibleName(SkinText(skin, kTextSearchWord));
  return word;
}

QFont ResultFont() {
  QFont font(QStringLiteral("굴림"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kResultPixels);
  font.setWeight(QFont::Bold);
  return font;
}

}  // namespace

CRSS_RightTopToolBarWnd::CRSS_RightTopToolBarWnd(const Skin& skin, QWidget* parent)
    : QWidget(parent),
      skin_(skin),
      size_(LoadSkinSize(skin, kSectionRightTopToolbar, kRightTopToolbarWidth,
                         kRightTopToolbarHeight, kDefaultSize)),
      background_(LoadThreePieces(skin, kSectionRightTopToolbar, kImageRightTopLeft,
                                  kImageRightTopMiddle, kImageRightTopRight)),
      scope_(*MakeScopeBox(skin, this)),
      word_(*MakeWordBox(skin, this)),
      button_(
          *MakeToolButton(skin, kSectionRightTopToolbar, kButtonSearch, kTextSearchTooltip, this)) {
  setObjectName("RSS_RightTopToolBar");
  SetAccessibleRole(*this, QAccessible::ToolBar);
  setAccessibleName(SkinText(skin, kTextRightTopToolBar));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  connect(&button_, &QAbstractButton::clicked, this, &CRSS_RightTopToolBarWnd::SearchRequested);
}

std::string CRSS_RightTopToolBarWnd::Word() const {
  return FromQString(skin_.Config().GetCodePage(), word_.text());
}

SearchScope CRSS_RightTopToolBarWnd::Scope() const {
  return static_cast<SearchScope>(scope_.currentIndex());
}

void CRSS_RightTopToolBarWnd::SetResultCount(int count) {
  resultText_ = count < 1
                    ? QString()
                    : SkinText(skin_, kLabelSearchResult).replace("%d", QString::number(count));
  setAccessibleDescription(resultText_);
  word_.setAccessibleDescription(resultText_);
  update();
}

void CRSS_RightTopToolBarWnd::FocusWord() {
  word_.setFocus(Qt::ShortcutFocusReason);
  word_.selectAll();
}

void CRSS_RightTopToolBarWnd::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
  if (resultText_.isEmpty()) return;
  painter.setFont(ResultFont());
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(kResultPlace, rect().bottomRight()), Qt::AlignLeft | Qt::AlignTop,
                   resultText_);
}

void CRSS_RightTopToolBarWnd::resizeEvent(QResizeEvent* /*event*/) {
  const QSize button = button_.sizeHint();
  const int needed = 2 * kEdge + kScopeWidth + kWordWidth + button.width() + 2 * kGap;
  const int missing = std::max(needed - width(), 0);
  // The word box shrinks first, then the scope box. If both are at their minimum, the button is
  // cut.
  const int fromWord = std::min(missing, kWordWidth - kMinWordWidth);
  const int fromScope = std::min(missing - fromWord, kScopeWidth - kMinScopeWidth);

  int left = kEdge;
  const auto place = [&](QWidget& control, QSize size) {
    control.setGeometry(QRect(QPoint(left, (height() - size.height()) / 2), size));
    left += size.width() + kGap;
  };
  place(scope_, {kScopeWidth - fromScope, scope_.sizeHint().height()});
  place(word_, {kWordWidth - fromWord, word_.sizeHint().height()});
  place(button_, button);
}

// Receives the keys that the focused control has ignored.
void CRSS_RightTopToolBarWnd::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!word_.hasFocus() || (!isEnter && event->key() != Qt::Key_Escape)) {
    return QWidget::keyPressEvent(event);
  }
  if (event->isAutoRepeat()) return;
  if (isEnter) {
    emit SearchRequested();
  } else {
    emit EscapePressed();
  }
}

}  // namespace feedloom
