#include "ui/dialogs/CRSS_DirectoryDlg.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>
#include <string>

#include "controls/CButtonEx.h"
#include "controls/CVxEdit.h"
#include "controls/CVxListCtrl.h"
#include "exchange/DirectorySearch.h"
#include "feed/WebAddress.h"
#include "look/QtText.h"
#include "look/SkinText.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"
#include "ui/dialogs/DirectoryModel.h"

namespace feedloom {
namespace {

constexpr QSize kFirstSize(640, 420);
constexpr int kTitleWidth = 180;
constexpr int kFeedUrlWidth = 200;

}  // namespace

CRSS_DirectoryDlg::CRSS_DirectoryDlg(Desk& desk, Subscribing& subscribing, QWidget* parent)
    : CVxDialog(desk.GetSkin(), kTextDirectoryTitle, parent),
      desk_(desk),
      subscribing_(subscribing),
      word_(*new CVxEdit(desk.GetSkin(), this)),
      searchButton_(*MakeButton(kSectionDirectory, kButtonDirectorySearch, kTextDirectorySearch)),
      model_(*new DirectoryModel(desk.GetStore().TextCodePage(),
                                 SkinText(desk.GetSkin(), kTextDirectoryHeader).split('|'), this)),
      list_(*new CVxListCtrl(this)),
      line_(*new QLabel(this)),
      add_(*MakeButton(kSectionDirectory, kButtonDirectoryAdd, kTextDirectoryAdd)),
      close_(*MakeButton(kSectionDirectory, kButtonDirectoryClose, kTextDirectoryClose)),
      search_(subscribing.MakeDirectorySearch()) {
  SetUpList();
  LayOut();
  Connect();
  UpdateAdd();
  resize(kFirstSize);
}

CRSS_DirectoryDlg::~CRSS_DirectoryDlg() = default;

void CRSS_DirectoryDlg::SetUpList() {
  list_.setAccessibleName(SkinText(GetSkin(), kTextDirectoryResults));
  list_.setModel(&model_);
  list_.setSelectionMode(QAbstractItemView::SingleSelection);
  list_.SetColumnWidths({kTitleWidth, CVxListCtrl::kFurtherColumnWidth, kFeedUrlWidth});
  // Descriptions get the space of a wide window. Rows keep the directory's order, best match first.
  list_.header()->setSectionResizeMode(DirectoryModel::kDescription, QHeaderView::Stretch);
  list_.header()->setSectionsClickable(false);
}

void CRSS_DirectoryDlg::LayOut() {
  auto* const label = new QLabel(SkinText(GetSkin(), kTextDirectoryWord), this);
  label->setBuddy(&word_);
  word_.setAccessibleName(label->text());
  word_.setFocus();
  line_.setTextFormat(Qt::PlainText);

  auto* const top = new QHBoxLayout;
  top->setSpacing(kDialogGap);
  top->addWidget(label);
  top->addWidget(&word_, 1);
  top->addWidget(&searchButton_);
  auto* const bottom = new QHBoxLayout;
  bottom->setSpacing(kDialogGap);
  bottom->addWidget(&line_, 1);
  bottom->addWidget(&add_);
  bottom->addWidget(&close_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  column->setSpacing(kDialogGap);
  column->addLayout(top);
  column->addWidget(&list_, 1);
  column->addLayout(bottom);
}

void CRSS_DirectoryDlg::Connect() {
  connect(&searchButton_, &QAbstractButton::clicked, this, &CRSS_DirectoryDlg::Search);
  connect(&add_, &QAbstractButton::clicked, this, &CRSS_DirectoryDlg::Add);
  connect(&close_, &QAbstractButton::clicked, this, &QDialog::reject);
  connect(&list_, &QAbstractItemView::doubleClicked, this, &CRSS_DirectoryDlg::Add);
  connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &CRSS_DirectoryDlg::UpdateAdd);
  // Queued: the list must not be closed in the middle of its own scrolling.
  connect(&list_, &CVxListCtrl::EndReached, this, &CRSS_DirectoryDlg::More, Qt::QueuedConnection);
}

void CRSS_DirectoryDlg::Search() {
  const std::string word = FromQString(desk_.GetStore().TextCodePage(), word_.text());
  if (word.empty()) {
    desk_.ShowTextMessage(kSectionTexts, kTextSearchEmpty, MsgBoxKind::Notice);
    return;  // the dialog may be gone
  }
  model_.Clear();
  search_->Begin(word, [this](const DirectoryAnswer& answer) { TakeAnswer(answer); });
  Wait();
}

void CRSS_DirectoryDlg::More() {
  if (search_->IsRunning() || !search_->HasMore()) return;
  search_->More([this](const DirectoryAnswer& answer) { TakeAnswer(answer); });
  Wait();
}

void CRSS_DirectoryDlg::Wait() {
  list_.SetInputBlocked(true);
  Say(SkinText(GetSkin(), kTextDirectorySearching));
  UpdateAdd();
}

void CRSS_DirectoryDlg::TakeAnswer(const DirectoryAnswer& answer) {
  model_.Append(answer.rows);
  answer.isAnswered ? ShowResult() : EndWait(SkinText(GetSkin(), kTextDirectoryFailed));
}

void CRSS_DirectoryDlg::GiveUp() {
  search_->GiveUp();
  model_.rowCount() > 0 ? ShowResult() : EndWait({});
}

void CRSS_DirectoryDlg::ShowResult() {
  const int rows = model_.rowCount();
  if (rows == 0) return EndWait(SkinText(GetSkin(), kTextDirectoryNothing));
  // The directory's total may be lower than the number of its rows.
  const std::string text = WithNumbers(GetSkin().GetText(kSectionTexts, kTextDirectoryCount),
                                       {std::max(search_->Total(), rows), rows});
  EndWait(ToQString(GetSkin().Config().GetCodePage(), text));
}

void CRSS_DirectoryDlg::EndWait(const QString& line) {
  list_.SetInputBlocked(false);
  Say(line);
  UpdateAdd();
}

void CRSS_DirectoryDlg::Say(const QString& line) {
  line_.setText(line);
  list_.setAccessibleDescription(line);
}

std::string CRSS_DirectoryDlg::ChosenFeed() const {
  const std::vector<int> rows = list_.SelectedRows();
  return rows.empty() ? std::string() : model_.FeedUrlAt(rows.front());
}

void CRSS_DirectoryDlg::UpdateAdd() {
  const std::string scheme = desk_.GetSkin().GetText(kSectionTexts, kTextUrlScheme);
  const bool isFeed = IsWebAddress(CompleteFeedAddress(ChosenFeed(), scheme));
  add_.setEnabled(!search_->IsRunning() && isFeed);
}

// The dialog may be destroyed by AddChannel; callers must not use it afterwards.
void CRSS_DirectoryDlg::Add() {
  if (add_.isEnabled()) subscribing_.AddChannel(ChosenFeed());
}

void CRSS_DirectoryDlg::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !event->isAutoRepeat() && search_->IsRunning()) {
    return GiveUp();
  }
  SetConfirmButton(list_.hasFocus() ? &add_ : word_.hasFocus() ? &searchButton_ : nullptr);
  CVxDialog::keyPressEvent(event);
}

}  // namespace feedloom
