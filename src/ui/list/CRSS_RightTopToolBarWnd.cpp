#include "ui/list/CRSS_RightTopToolBarWnd.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStandardItemModel>
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
#include "ui/WebDirectory.h"
#include "ui/list/UnreadButton.h"

namespace feedloom {
namespace {

constexpr QSize kDefaultSize(508, 40);  // used when the skin has no size

constexpr int kEdge = 8;  // margin left and right of the controls
constexpr int kGap = 4;   // between the controls
constexpr int kScopeWidth = 84;
constexpr int kMinScopeWidth = 40;
constexpr int kWordWidth = 172;
constexpr int kMinWordWidth = 40;
constexpr int kMinWordWidthBesideResult = 80;

constexpr QPoint kResultPlace(312, 13);
constexpr int kResultPixels = 12;
constexpr int kResultGap = 8;  // between the button and the result, at least

// Leaves the scope at the posts of the store.
void DisableWeb(CVxComboBox& scope, const QString& reason) {
  constexpr int kWeb = static_cast<int>(SearchScope::Web);
  qobject_cast<QStandardItemModel*>(scope.model())->item(kWeb)->setEnabled(false);
  scope.setItemData(kWeb, reason, Qt::ToolTipRole);
  scope.setItemData(kWeb, reason, Qt::AccessibleDescriptionRole);
  scope.setCurrentIndex(static_cast<int>(SearchScope::Local));
}

CVxComboBox* MakeScopeBox(const Skin& skin, QWidget* parent) {
  auto* scope = new CVxComboBox(skin, ComboLook::Toolbar, parent);
  scope->addItem(SkinText(skin, kLabelScopeWeb));
  scope->addItem(SkinText(skin, kLabelScopeLocal));
  scope->setToolTip(SkinText(skin, kTextSearchScope));
  if (skin.Config().SearchesTexts()) scope->addItem(SkinText(skin, kLabelScopeText));
  if (!HasWebDirectory(skin)) DisableWeb(*scope, SkinText(skin, kTextDirectoryMissing));
  if (skin.Config().SearchesTexts()) scope->setCurrentIndex(static_cast<int>(SearchScope::Text));
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

QString ResultText(const Skin& skin, int count, bool hasMore) {
  if (count < 0) return {};
  if (count == 0) return SkinText(skin, kTextSearchNothing);
  return SkinText(skin, kLabelSearchResult)
      .replace("%d", QString::number(count) + (hasMore ? "+" : ""));
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
          *MakeToolButton(skin, kSectionRightTopToolbar, kButtonSearch, kTextSearchTooltip, this)),
      unread_(*MakeUnreadButton(skin, this)) {
  setObjectName("RSS_RightTopToolBar");
  SetAccessibleRole(*this, QAccessible::ToolBar);
  setAccessibleName(SkinText(skin, kTextRightTopToolBar));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  connect(&button_, &QAbstractButton::clicked, this, &CRSS_RightTopToolBarWnd::SearchRequested);
  connect(&unread_, &QAbstractButton::toggled, this, &CRSS_RightTopToolBarWnd::UnreadOnlyWanted);
}

std::string CRSS_RightTopToolBarWnd::Word() const {
  return FromQString(skin_.Config().GetCodePage(), word_.text());
}

SearchScope CRSS_RightTopToolBarWnd::Scope() const {
  return static_cast<SearchScope>(scope_.currentIndex());
}

void CRSS_RightTopToolBarWnd::SetScope(int scope) {
  const QModelIndex entry = scope_.model()->index(scope, 0);
  if (entry.flags().testFlag(Qt::ItemIsEnabled)) scope_.setCurrentIndex(scope);
}

void CRSS_RightTopToolBarWnd::SetResultCount(int count, bool hasMore) {
  resultText_ = ResultText(skin_, count, hasMore);
  setAccessibleDescription(resultText_);
  word_.setAccessibleDescription(resultText_);
  LayOut();
  update();
}

void CRSS_RightTopToolBarWnd::SetUnreadOnly(bool isOn) { unread_.setChecked(isOn); }

void CRSS_RightTopToolBarWnd::FocusWord() {
  word_.setFocus(Qt::ShortcutFocusReason);
  word_.selectAll();
}

void CRSS_RightTopToolBarWnd::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawThreePieces(painter, rect(), background_);
  if (!isResultShown_) return;
  painter.setFont(ResultFont());
  painter.setPen(palette().color(QPalette::WindowText));
  const int end = unread_.x() - kGap;
  const int left = std::min(kResultPlace.x(), end - ResultWidth() + kResultGap);
  painter.drawText(QRect(QPoint(left, kResultPlace.y()), QPoint(end, rect().bottom())),
                   Qt::AlignLeft | Qt::AlignTop, resultText_);
}

void CRSS_RightTopToolBarWnd::resizeEvent(QResizeEvent* /*event*/) { LayOut(); }

int CRSS_RightTopToolBarWnd::ResultWidth() const {
  return QFontMetrics(ResultFont()).horizontalAdvance(resultText_) + kResultGap;
}

void CRSS_RightTopToolBarWnd::LayOut() {
  const QSize button = button_.sizeHint();
  const QSize unread = unread_.sizeHint();
  const int needed =
      2 * kEdge + kScopeWidth + kWordWidth + button.width() + unread.width() + 3 * kGap;
  const int missing = std::max(needed - width(), 0);
  const int missingForResult = needed + ResultWidth() - width();
  isResultShown_ =
      !resultText_.isEmpty() && missingForResult <= kWordWidth - kMinWordWidthBesideResult;
  // The word box shrinks first, then the scope box. If both are at their minimum, the button is
  // cut.
  const int fromWord = std::min(isResultShown_ ? std::max(missing, missingForResult) : missing,
                                kWordWidth - kMinWordWidth);
  const int fromScope = std::clamp(missing - fromWord, 0, kScopeWidth - kMinScopeWidth);

  int left = kEdge;
  const auto place = [&](QWidget& control, QSize size) {
    control.setGeometry(QRect(QPoint(left, (height() - size.height()) / 2), size));
    left += size.width() + kGap;
  };
  place(scope_, {kScopeWidth - fromScope, scope_.sizeHint().height()});
  place(word_, {kWordWidth - fromWord, word_.sizeHint().height()});
  place(button_, button);
  left = std::max(left, width() - kEdge - unread.width());
  place(unread_, unread);
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
