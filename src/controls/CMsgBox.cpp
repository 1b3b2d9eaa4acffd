#include "controls/CMsgBox.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <span>

#include "controls/AccessibleRole.h"
#include "controls/CButtonEx.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

struct Choice {
  const char* imageKey;
  const char* textKey;
  bool consents;
};

constexpr Choice kYesNo[] = {{kButtonYes, kTextYes, true}, {kButtonNo, kTextNo, false}};
constexpr Choice kOkCancel[] = {{kButtonOk, kTextOk, true}, {kButtonCancel, kTextCancel, false}};
constexpr Choice kNotice[] = {{kButtonOk, kTextOk, true}};

std::span<const Choice> ChoicesOf(MsgBoxKind kind) {
  switch (kind) {
    case MsgBoxKind::YesNo:
    case MsgBoxKind::Offer:
      return kYesNo;
    case MsgBoxKind::OkCancel:
      return kOkCancel;
    case MsgBoxKind::Notice:
      break;
  }
  return kNotice;
}

// What the user agrees to in a hurry must not be what cannot be taken back.
bool AsksForCare(MsgBoxKind kind) {
  return kind == MsgBoxKind::YesNo || kind == MsgBoxKind::OkCancel;
}

// The modal dialog that belongs to `parent`; `parent` itself without one.
QWidget* WaitingWindow(QWidget* parent) {
  QWidget* const dialog = QApplication::activeModalWidget();
  for (const QObject* above = dialog; above && parent; above = above->parent()) {
    if (above == parent) return dialog;
  }
  return parent;
}

constexpr QSize kSmallestText(220, 32);
constexpr int kWidestMessage = 420;

// The size of the text area: that of the text wrapped at kWidestMessage, but at most two thirds of
// the screen, plus a scroll bar then.
QSize TextAreaSize(const QLabel& label, const QSize& screen) {
  const QSize limit = screen * 2 / 3;
  const int oneLine = label.fontMetrics().size(0, label.text()).width();
  const int width = std::min(std::clamp(oneLine, kSmallestText.width(), kWidestMessage),
                             std::max(limit.width(), kSmallestText.width()));
  const int height = std::max(label.heightForWidth(width), kSmallestText.height());
  if (height <= limit.height()) return {width, height};
  return {width + label.style()->pixelMetric(QStyle::PM_ScrollBarExtent), limit.height()};
}

}  // namespace

CMsgBox::CMsgBox(const Skin& skin, const QString& text, MsgBoxKind kind, QWidget* parent)
    : CVxDialog(skin, nullptr, parent) {
  SetAccessibleRole(*this, QAccessible::AlertMessage);
  setAccessibleDescription(text);

  auto* column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  column->setSpacing(kDialogMargin);
  column->addWidget(MakeTextArea(text));
  column->addLayout(MakeChoiceRow(kind));
}

QWidget* CMsgBox::MakeTextArea(const QString& text) {
  auto* area = new QScrollArea(this);
  auto* label = new QLabel(area);
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFixedSize(TextAreaSize(*label, screen()->availableSize()));
  area->setWidget(label);
  area->setAccessibleName(text);
  if (label->heightForWidth(area->width()) <= area->height()) {
    area->setFocusPolicy(Qt::NoFocus);  // the focus is needed for scrolling only
    // The scroll area lays a wrapped text out narrower at first, and would keep a bar for that.
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  return area;
}

QHBoxLayout* CMsgBox::MakeChoiceRow(MsgBoxKind kind) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kDialogGap);
  row->addStretch();
  for (const Choice& choice : ChoicesOf(kind)) {
    CButtonEx* const button = MakeButton(kSectionMsgBox, choice.imageKey, choice.textKey);
    connect(button, &QAbstractButton::clicked, this,
            choice.consents ? &QDialog::accept : &QDialog::reject);
    row->addWidget(button);
    if (choice.consents != AsksForCare(kind)) SetConfirmButton(button);
  }
  row->addStretch();
  ConfirmButton()->setFocus();
  return row;
}

void CMsgBox::showEvent(QShowEvent* event) {
  CVxDialog::showEvent(event);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

MsgBoxAnswer ShowMsgBox(const Skin& skin, const QString& text, MsgBoxKind kind, QWidget* parent) {
  auto* box = new CMsgBox(skin, text, kind, WaitingWindow(parent));
  // With this attribute exec() deletes the box itself, and also works when the parent has deleted
  // it.
  box->setAttribute(Qt::WA_DeleteOnClose);
  return box->exec() == QDialog::Accepted ? MsgBoxAnswer::Consented : MsgBoxAnswer::Declined;
}

}  // namespace feedloom
