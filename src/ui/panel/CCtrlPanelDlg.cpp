#include "ui/panel/CCtrlPanelDlg.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "controls/CButtonEx.h"
#include "controls/OnKey.h"
#include "look/SkinPieces.h"
#include "skin/Keys.h"
#include "ui/Desk.h"
#include "ui/panel/CCtrlPanel01.h"
#include "ui/panel/CCtrlPanel02.h"
#include "ui/panel/CCtrlPanel03.h"
#include "ui/panel/CCtrlPanel04.h"
#include "ui/panel/ControlPanel.h"
#include "ui/panel/PanelRules.h"

namespace feedloom {
namespace {

constexpr int kMargin = 16;
constexpr int kTabGap = 2;

struct Tab {
  const char* imageKey;
  const char* textKey;
};

constexpr Tab kTabs[] = {{kButtonPanelTab1, kTextPanelTab1},
                         {kButtonPanelTab2, kTextPanelTab2},
                         {kButtonPanelTab3, kTextPanelTab3},
                         {kButtonPanelTab4, kTextPanelTab4}};

QFont PanelFont(QFont font) {
  font.setFamily(QStringLiteral("Arial"));
  return font;
}

}  // namespace

CCtrlPanelDlg::CCtrlPanelDlg(Desk& desk, QWidget* parent, const SettingsAccess& access)
    : CVxDialog(desk.GetSkin(), kTextPanelTitle, parent),
      desk_(desk),
      access_(access),
      loaded_(access.load()),
      tabs_(new QButtonGroup(this)),
      stack_(new QStackedWidget) {
  setFont(PanelFont(font()));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(0);
  column->addLayout(MakeTabs());
  column->addWidget(stack_, 1);
  AddPages();
  column->addSpacing(kMargin);
  column->addLayout(MakeButtonRow(kSectionPanel, kButtonPanelOk, kButtonPanelCancel));
  AddPageKeys({Qt::CTRL | Qt::Key_PageDown, Qt::CTRL | Qt::Key_Tab}, 1);
  AddPageKeys({Qt::CTRL | Qt::Key_PageUp, Qt::CTRL | Qt::SHIFT | Qt::Key_Tab}, -1);
  ShowPage(0);
  pages_[0]->FocusFirst();
  TakePlace(*parent->window());
}

QHBoxLayout* CCtrlPanelDlg::MakeTabs() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(kTabGap);
  for (const Tab& tab : kTabs) {
    CButtonEx* const button = MakeButton(kSectionPanel, tab.imageKey, tab.textKey);
    button->setCheckable(true);
    // Makes screen readers announce a radio button; the button group alone does not.
    button->setAutoExclusive(true);
    tabs_->addButton(button, row->count());
    row->addWidget(button);
  }
  row->addStretch();
  connect(tabs_, &QButtonGroup::idToggled, this, [this](int page, bool isOn) {
    if (isOn) ShowPage(page);
  });
  return row;
}

void CCtrlPanelDlg::AddPages() {
  stack_->setFrameShape(QFrame::StyledPanel);
  deletePage_ = new CCtrlPanel04(GetSkin(), this);
  pages_ = {new CCtrlPanel01(GetSkin(), this), new CCtrlPanel02(GetSkin(), this),
            new CCtrlPanel03(GetSkin(), this), deletePage_};
  for (CtrlPanelPage* page : pages_) {
    stack_->addWidget(page);
    page->Show(loaded_);
  }
}

void CCtrlPanelDlg::AddPageKeys(const QList<QKeySequence>& keys, int step) {
  for (const QKeySequence& key : keys) {
    OnKey(
        *this, key, [this, step] { StepToPage(step); }, Qt::WindowShortcut);
  }
}

void CCtrlPanelDlg::TakePlace(const QWidget& host) {
  const QRect place = LoadSkinPlace(GetSkin(), kSectionPanel, kPanelPlace);
  setFixedSize(sizeHint().expandedTo(place.size()));
  const QRect hostPlace(host.mapToGlobal(QPoint()), host.size());
  move(PanelPosition(place, size(), hostPlace, host.screen()->availableGeometry()));
}

void CCtrlPanelDlg::ShowPage(int page) {
  tabs_->button(page)->setChecked(true);
  stack_->setCurrentIndex(page);
}

void CCtrlPanelDlg::StepToPage(int step) {
  const int page = (stack_->currentIndex() + step + kPageCount) % kPageCount;
  ShowPage(page);
  pages_[static_cast<std::size_t>(page)]->FocusFirst();
}

Settings CCtrlPanelDlg::Values() const {
  Settings settings = loaded_;
  for (const CtrlPanelPage* page : pages_) page->Read(settings);
  return settings;
}

void CCtrlPanelDlg::accept() {
  const Settings settings = Values();
  if (const char* fault = ValidatePanelSettings(settings)) {
    ShowPage(stack_->indexOf(deletePage_));
    deletePage_->FocusDays();
    desk_.ShowTextMessage(kSectionTexts, fault, MsgBoxKind::Notice);
    return;
  }
  if (!access_.save(settings)) {
    desk_.ShowTextMessage(kSectionTexts, kTextSettingsNotSaved, MsgBoxKind::Notice);
    return;
  }
  CVxDialog::accept();
}

}  // namespace feedloom
