#include "ui/dialogs/CRSS_MergeDlg.h"

#include <QLabel>
#include <QVBoxLayout>

#include "controls/CButtonEx.h"
#include "look/QtText.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"

namespace feedloom {
namespace {

constexpr int kWidth = 320;

}  // namespace

CRSS_MergeDlg::CRSS_MergeDlg(const Skin& skin, const std::string& question, QWidget* parent)
    : CVxDialog(skin, kTextOpmlTitle, parent) {
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  column->setSpacing(kDialogGap);
  AddQuestion(question);
  SetConfirmButton(AddChoice(kTextOpmlAddMissing, NameClash::Merge));
  AddChoice(kTextOpmlAddAll, NameClash::Rename);
  CButtonEx* const cancel = MakeButton(kSectionOpml, kButtonOpmlCancel, kTextCancel);
  connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
  column->addWidget(cancel);
  ConfirmButton()->setFocus();
}

void CRSS_MergeDlg::AddQuestion(const std::string& question) {
  const QString text = ToQString(GetSkin().Config().GetCodePage(), WithLineBreaks(question));
  auto* const label = new QLabel(this);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFixedWidth(kWidth);
  label->setText(text);
  setAccessibleDescription(text);
  layout()->addWidget(label);
}

CButtonEx* CRSS_MergeDlg::AddChoice(const char* textKey, NameClash choice) {
  CButtonEx* const button = MakeButton(kSectionOpml, kButtonOpmlConfirm, textKey);
  connect(button, &QAbstractButton::clicked, this, [this, choice] {
    chosen_ = choice;
    accept();
  });
  layout()->addWidget(button);
  return button;
}

}  // namespace feedloom
