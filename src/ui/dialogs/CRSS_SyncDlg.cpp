#include "ui/dialogs/CRSS_SyncDlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>

#include "controls/CButtonEx.h"
#include "controls/CVxEdit.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"

namespace feedloom {
namespace {

// Enough for the longest status text, so that the window keeps its size.
constexpr int kStatusWidth = 320;
constexpr int kStatusLines = 2;

constexpr int kButtonGap = 8;

std::string EndText(const Skin& skin, const SyncEnd& end) {
  const auto text = [&](const char* key) { return skin.GetText(kSectionTexts, key); };
  if (!end.sent) return text(kTextSyncError);
  if (!end.received) return WithNumbers(text(kTextSyncListError), {*end.sent});
  return WithNumbers(text(kTextSyncDone), {*end.sent, end.received->added});
}

QLabel* MakeStatus(QWidget* room) {
  auto* const status = new QLabel(room);
  status->setTextFormat(Qt::PlainText);
  status->setWordWrap(true);
  status->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  status->setFixedSize(kStatusWidth, kStatusLines * status->fontMetrics().lineSpacing());
  room->setFixedSize(status->size());
  return status;
}

}  // namespace

CRSS_SyncDlg::CRSS_SyncDlg(Desk& desk, Subscribing& subscribing, QWidget* parent)
    : CVxFormDialog(desk.GetSkin(), kTextSyncTitle, parent),
      desk_(desk),
      subscribing_(subscribing),
      model_(*AddEdit(kTextSyncModel)) {
  const std::string model = desk.GetSkin().Config().GetModelName();
  model_.ShowOnly(ToQString(desk.GetSkin().Config().GetCodePage(),
                            model.empty() ? Text(kTextSyncNoModel) : model));
  if (!model.empty()) AddSynchronisation();
  AddButtonRow();
}

void CRSS_SyncDlg::AddSynchronisation() {
  status_ = MakeStatus(AddBelow());
  Say(WithLineBreaks(Text(kTextSyncInfo)));
  start_ = MakeButton(kSectionSync, kButtonSyncStart, kTextSyncStart);
  connect(start_, &QAbstractButton::clicked, this, &CRSS_SyncDlg::Synchronise);
}

// Not the base class's row, whose buttons accept or reject the dialog.
void CRSS_SyncDlg::AddButtonRow() {
  CButtonEx* const close = MakeButton(kSectionSync, kButtonSyncConfirm, kTextSyncClose);
  connect(close, &QAbstractButton::clicked, this, &QDialog::reject);
  SetConfirmButton(start_ ? start_ : close);
  if (!start_) close->setFocus();
  auto* const row = new QHBoxLayout;
  row->setSpacing(kButtonGap);
  row->addStretch();
  if (start_) row->addWidget(start_);
  row->addWidget(close);
  row->addStretch();
  qobject_cast<QBoxLayout*>(layout())->addLayout(row);
}

std::string CRSS_SyncDlg::Text(const char* key) const {
  return desk_.GetSkin().GetText(kSectionTexts, key);
}

void CRSS_SyncDlg::Synchronise() {
  SetRunning(true);
  Say(Text(kTextSyncRunning));
  subscribing_.Synchronise([&desk = desk_, self = QPointer(this)](const SyncEnd& end) {
    const std::string text = EndText(desk.GetSkin(), end);
    if (end.sent) desk.ReportMessage(text);  // what has failed was reported
    if (!self) return;
    self->SetRunning(false);
    self->Say(text);
  });
}

void CRSS_SyncDlg::SetRunning(bool isRunning) {
  // Without this, disabling the button moves the focus to Close, which the next Enter would press.
  if (isRunning) model_.setFocus();
  start_->setEnabled(!isRunning);
}

void CRSS_SyncDlg::Say(const std::string& text) {
  status_->setText(ToQString(desk_.GetSkin().Config().GetCodePage(), text));
  model_.setAccessibleDescription(status_->text());  // the field with the focus
}

}  // namespace feedloom
