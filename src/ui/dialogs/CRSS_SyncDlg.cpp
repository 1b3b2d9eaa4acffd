#include "ui/dialogs/CRSS_SyncDlg.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <filesystem>

#include "controls/CButtonEx.h"
#include "controls/CVxEdit.h"
#include "files/Path.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"

namespace feedloom {
namespace {

// File names in the work directory: the list for the handset, and the handset's own list.
constexpr char kSentList[] = "Skyfold_pc.opml";
constexpr char kReceivedList[] = "Skyfold_ppc.opml";

// Enough for the longest status text, so that the window keeps its size.
constexpr int kStatusWidth = 320;
constexpr int kStatusLines = 2;

constexpr int kButtonGap = 8;

bool IsThere(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

// The numbers of sent and added channels; `received` is std::nullopt when the handset's list could
// not be imported.
std::string EndText(const Skin& skin, int sent, const std::optional<ImportSums>& received) {
  if (!received) return WithNumbers(skin.GetText(kSectionTexts, kTextSyncListError), {sent});
  return WithNumbers(skin.GetText(kSectionTexts, kTextSyncDone), {sent, received->added});
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
  const std::string folder = desk_.GetSkin().Config().GetWorkDir();
  const auto sent = subscribing_.ExportOpml(JoinPath(folder, kSentList));
  if (!sent) return Say(Text(kTextSyncError));
  const auto onEnd = [&desk = desk_, sent = *sent, self = QPointer(this)](const auto& received) {
    const std::string text = EndText(desk.GetSkin(), sent, received);
    desk.ReportMessage(text);
    if (!self) return;
    self->SetRunning(false);
    self->Say(text);
  };
  const std::string received = JoinPath(folder, kReceivedList);
  if (!IsThere(received)) return onEnd(std::optional(ImportSums()));
  SetRunning(true);
  Say(Text(kTextSyncRunning));
  subscribing_.MergeOpml(received, onEnd);
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
