#include "ui/list/CRSS_RightTopContainer.h"

#include <QPainter>
#include <QShortcut>
#include <functional>
#include <utility>

#include "skin/Keys.h"
#include "skin/Labels.h"
#include "store/Search.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/ListViewState.h"
#include "ui/list/PostDelegate.h"
#include "ui/list/PostListModel.h"
#include "vxctrl/CVxListCtrl.h"
#include "vxctrl/SkinText.h"

namespace feedloom {
namespace {

constexpr int kListId = 3005;

PostListTexts LoadTexts(Frame& frame) {
  return {.headings = SplitHeadings(frame.GetStore().TextCodePage(),
                                    GetLabel(frame.GetSkin(), kLabelListHeader)),
          .read = SkinText(frame.GetSkin(), kTextPostRead),
          .unread = SkinText(frame.GetSkin(), kTextPostUnread),
          .ascending = SkinText(frame.GetSkin(), kTextSortedAscending),
          .descending = SkinText(frame.GetSkin(), kTextSortedDescending)};
}

}  // namespace

CRSS_RightTopContainer::CRSS_RightTopContainer(Frame& frame, QWidget* parent)
    : QWidget(parent),
      frame_(frame),
      border_(LoadPaneFrame(frame.GetSkin())),
      toolbar_(*new CRSS_RightTopToolBarWnd(frame.GetSkin(), this)),
      model_(*new PostListModel(frame.GetStore().TextCodePage(), LoadTexts(frame), this)),
      list_(*new CVxListCtrl(this)),
      commands_(frame, model_, list_),
      webSearch_(frame, list_, [this](PostList list) { Append(std::move(list)); }) {
  SetUpList();
  SetUpKeys();
  connect(&toolbar_, &CRSS_RightTopToolBarWnd::SearchRequested, this,
          &CRSS_RightTopContainer::Search);
  connect(&toolbar_, &CRSS_RightTopToolBarWnd::EscapePressed, &list_, [this] { list_.setFocus(); });
}

void CRSS_RightTopContainer::SetUpList() {
  list_.setObjectName(QString::number(kListId));
  list_.setAccessibleName(SkinText(frame_.GetSkin(), kTextListName));
  list_.setFrameShape(QFrame::NoFrame);
  list_.setModel(&model_);
  list_.setItemDelegate(new PostDelegate(&list_));
  list_.SetColumnWidths({30, 278, 100, 100});
  setFocusProxy(&list_);
  connect(&list_, &CVxListCtrl::RowClicked, this, &CRSS_RightTopContainer::ShowClicked);
  connect(&list_, &CVxListCtrl::MenuRequested, this, &CRSS_RightTopContainer::OpenMenu);
  connect(&list_, &CVxListCtrl::SortRequested, this, [this](int column, Qt::SortOrder order) {
    SortKeepingPosition(list_, model_, column, order);
  });
}

// These are shortcuts because the view would use a letter key to search for a title.
void CRSS_RightTopContainer::SetUpKeys() {
  struct Key {
    QKeySequence key;
    QWidget* widget;
    Qt::ShortcutContext context;
    std::function<void()> run;
  };
  const Key keys[] = {
      {Qt::Key_Return, &list_, Qt::WidgetShortcut, [this] { commands_.ShowCurrent(); }},
      {Qt::Key_Enter, &list_, Qt::WidgetShortcut, [this] { commands_.ShowCurrent(); }},
      {Qt::Key_Delete, &list_, Qt::WidgetShortcut, [this] { commands_.Run(kCommandDelete); }},
      {Qt::Key_N, &list_, Qt::WidgetShortcut, [this] { GoToUnread(true); }},
      {Qt::Key_P, &list_, Qt::WidgetShortcut, [this] { GoToUnread(false); }},
      {QKeySequence::SelectAll, &list_, Qt::WidgetShortcut, [this] { list_.selectAll(); }},
      {QKeySequence::Find, this, Qt::WidgetWithChildrenShortcut, [this] { FocusSearch(); }},
  };
  for (const Key& key : keys) {
    auto* const shortcut = new QShortcut(key.key, key.widget);
    shortcut->setContext(key.context);
    connect(shortcut, &QShortcut::activated, this, key.run);
  }
}

void CRSS_RightTopContainer::Fill(PostList list) {
  webSearch_.Cancel();
  const bool wasSearched = list.wereSearched;
  model_.Fill(std::move(list));
  list_.ClearSorting();
  list_.scrollToTop();
  toolbar_.SetResultCount(wasSearched ? model_.rowCount() : -1);
}

void CRSS_RightTopContainer::Append(PostList list) {
  const bool wasSearched = list.wereSearched;
  AppendKeepingPosition(list_, model_, std::move(list));
  toolbar_.SetResultCount(wasSearched ? model_.rowCount() : -1);
}

void CRSS_RightTopContainer::Refill(PostList list) {
  if (model_.Shows(list)) return;
  const ListViewState place = SaveViewState(list_, model_);
  model_.Refill(std::move(list));
  RestoreViewState(list_, model_, place);
}

void CRSS_RightTopContainer::ShowClicked(int row) {
  // Each click counts as one post read, even if the post was read before: the total is used only to
  // announce new posts.
  --frame_.State().unreadTotal;
  Show(row);
}

void CRSS_RightTopContainer::Show(int index) { commands_.Show(index); }

void CRSS_RightTopContainer::ShowFirst(FirstShown shown) {
  const int rows = model_.rowCount();
  int row = -1;
  if (shown == FirstShown::FirstUnread) row = model_.FindUnread(-1, true);
  if (shown == FirstShown::LastUnread) row = model_.FindUnread(rows, false);
  Show(row < 0 && rows > 0 ? 0 : row);
}

void CRSS_RightTopContainer::GoToUnread(bool forward) {
  if (!webSearch_.IsRunning()) commands_.GoToUnread(forward);
}

void CRSS_RightTopContainer::OpenMenu(const QPoint& place) {
  if (const auto menu = commands_.ContextMenu()) {
    ShowMenu(*menu, frame_.GetSkin(), place, this, [this](int command) { commands_.Run(command); });
  }
}

void CRSS_RightTopContainer::FocusSearch() { toolbar_.FocusWord(); }

void CRSS_RightTopContainer::Search() {
  const std::string word = toolbar_.Word();
  if (word.empty()) {
    frame_.ShowTextMessage(kSectionTexts, kTextSearchEmpty, MsgBoxKind::Notice);
    return;  // the pane may have been deleted
  }
  toolbar_.Scope() == SearchScope::Web ? webSearch_.Begin(word) : SearchStore(word);
}

void CRSS_RightTopContainer::SearchStore(const std::string& word) {
  PostList found;
  found.wereSearched = true;
  if (!SearchPosts(frame_.GetStore(), word, found.posts)) return;
  frame_.ListPosts(ListMode::Selection, std::move(found));
}

void CRSS_RightTopContainer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawPaneFrame(painter, rect(), toolbar_.Height(), border_);
}

void CRSS_RightTopContainer::resizeEvent(QResizeEvent* /*event*/) {
  const int edge = SizeOf(border_.left).width();
  toolbar_.setGeometry(edge, 0, width() - 2 * edge, toolbar_.Height());
  list_.setGeometry(ViewArea(rect(), toolbar_.Height()));
}

}  // namespace feedloom
