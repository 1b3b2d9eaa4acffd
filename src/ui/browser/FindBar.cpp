#include "ui/browser/FindBar.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include "controls/AccessibleRole.h"
#include "controls/CVxEdit.h"
#include "look/SkinFont.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "ui/browser/BarMargins.h"

namespace feedloom {
namespace {

constexpr int kWordWidth = 240;
constexpr int kSmallestWord = 60;

// The stretch factors of the word and of the space behind the result.
constexpr int kWordShare = 2;
constexpr int kStretchShare = 1;

CVxEdit* MakeWord(const Skin& skin, QWidget* parent) {
  auto* word = new CVxEdit(skin, parent);
  word->setPlaceholderText(SkinText(skin, kTextFindWord));
  word->setAccessibleName(word->placeholderText());
  word->setMinimumWidth(kSmallestWord);
  word->setMaximumWidth(kWordWidth);
  return word;
}

// The button does not take the focus when it is clicked.
QToolButton* MakeButton(const QString& name, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setToolTip(name);
  button->setAccessibleName(name);
  button->setAutoRaise(true);
  return button;
}

}  // namespace

FindBar::FindBar(const Skin& skin, QWidget* parent)
    : QWidget(parent),
      skin_(skin),
      background_(LoadThreePieces(skin, kSectionRightBottom, kImageRightBottomLeft,
                                  kImageRightBottomMiddle, kImageRightBottomRight)),
      word_(MakeWord(skin, this)),
      result_(new QLabel(this)) {
  SetAccessibleRole(*this, QAccessible::ToolBar);
  setAccessibleName(word_->accessibleName());
  hide();
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  result_->setTextFormat(Qt::PlainText);
  result_->setMinimumWidth(1);  // a narrow pane cuts off the result, not the buttons
  LayOut();
  connect(word_, &QLineEdit::textEdited, this, [this](const QString& word) {
    if (word.isEmpty()) ShowResult({});
    Ask(false);
  });
}

// The Tab key follows the order in which the buttons are made.
void FindBar::LayOut() {
  auto* const previous = MakeButton(SkinText(skin_, kTextFindPrevious), this);
  previous->setArrowType(Qt::UpArrow);
  connect(previous, &QAbstractButton::clicked, this, [this] { Ask(true); });
  auto* const next = MakeButton(SkinText(skin_, kTextFindNext), this);
  next->setArrowType(Qt::DownArrow);
  connect(next, &QAbstractButton::clicked, this, [this] { Ask(false); });
  auto* const close = MakeButton(SkinText(skin_, kTextFindClose), this);
  close->setText(QChar(0xD7));  // the desktop's icon might be invisible on the skin
  connect(close, &QAbstractButton::clicked, this, &FindBar::Close);

  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kBarEdge, kBarVerticalMargin, kBarEdge, kBarVerticalMargin);
  row->setSpacing(kBarGap);
  row->addWidget(word_, kWordShare);
  row->addWidget(previous);
  row->addWidget(next);
  row->addWidget(result_);
  row->addStretch(kStretchShare);
  row->addWidget(close);
}

void FindBar::Open() {
  if (isHidden()) ShowResult({});  // a result of the last search may have come late
  show();
  word_->setFocus(Qt::ShortcutFocusReason);
  word_->selectAll();
}

void FindBar::Close() {
  if (isHidden()) return;
  hide();
  emit Wanted({}, false);
  emit Closed();
}

void FindBar::SetResult(int active, int all) {
  if (word_->text().isEmpty()) return ShowResult({});
  if (all == 0) return ShowResult(SkinText(skin_, kTextFindNothing));
  ShowResult(SkinText(skin_, kTextFindCount).arg(QString::number(active), QString::number(all)));
}

void FindBar::Ask(bool backward) { emit Wanted(word_->text(), backward); }

void FindBar::ShowResult(const QString& text) {
  result_->setText(text);
  result_->setToolTip(text);
  word_->setAccessibleDescription(text);
}

void FindBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
}

// Receives the keys that the focused control has ignored.
void FindBar::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter && event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  if (!isEnter) return Close();
  if (auto* const button = qobject_cast<QAbstractButton*>(focusWidget())) return button->click();
  Ask(event->modifiers().testFlag(Qt::ShiftModifier));
}

}  // namespace feedloom
