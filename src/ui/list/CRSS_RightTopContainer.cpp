#include "ui/list/CRSS_RightTopContainer.h"

#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <algorithm>
#include <functional>
#include <unordered_map>
#include <utility>

#include "controls/CVxListCtrl.h"
#include "controls/ColumnFill.h"
#include "look/QtText.h"
#include "look/SkinPalette.h"
#include "look/SkinText.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "store/PostLists.h"
#include "store/Search.h"
#include "ui/CommandKeys.h"
#include "ui/Desk.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/ListViewState.h"
#include "ui/list/PostDelegate.h"
#include "ui/list/PostListModel.h"
#include "ui/list/TwoLineDelegate.h"

namespace feedloom {
namespace {

constexpr int kListId = 3005;

PostListTexts LoadTexts(Desk& desk) {
  return {.headings = SplitHeadings(desk.GetStore().TextCodePage(),
                                    GetLabel(desk.GetSkin(), kLabelListHeader)),
          .read = SkinText(desk.GetSkin(), kTextPostRead),
          .unread = SkinText(desk.GetSkin(), kTextPostUnread),
          .ascending = SkinText(desk.GetSkin(), kTextSortedAscending),
          .descending = SkinText(desk.GetSkin(), kTextSortedDescending)};
}

// Puts `posts` in the order in which a search has found them; others come last.
void PutInOrder(const std::vector<int>& listed, std::vector<PostRow>& posts) {
  std::unordered_map<int, std::size_t> places;
  for (const int id : listed) places.emplace(id, places.size());
  const auto place = [&](const PostRow& post) {
    const auto found = places.find(ListId(post));
    return found == places.end() ? places.size() : found->second;
  };
  std::ranges::stable_sort(posts, {}, place);
}

}  // namespace

CRSS_RightTopContainer::CRSS_RightTopContainer(Desk& desk, Reading& reading,
                                               Subscribing& subscribing, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      reading_(reading),
      isCareful_(desk.GetSkin().Config().SelectsCarefully()),
      border_(LoadPaneFrame(desk.GetSkin())),
      toolbar_(*new CRSS_RightTopToolBarWnd(desk.GetSkin(), this)),
      model_(*new PostListModel(desk.GetStore().TextCodePage(), LoadTexts(desk), this)),
      list_(*new CVxListCtrl(this)),
      commands_(desk, reading, model_, list_),
      webSearch_(desk, reading, subscribing, list_,
                 [this](PostList list) { Append(std::move(list)); }),
      textSearcher_(desk, reading, *this) {
  SetUpList();
  SetUpKeys();
  connect(&toolbar_, &CRSS_RightTopToolBarWnd::SearchRequested, this,
          &CRSS_RightTopContainer::Search);
  connect(&toolbar_, &CRSS_RightTopToolBarWnd::UnreadOnlyWanted, this,
          &CRSS_RightTopContainer::UnreadOnlyWanted);
  connect(&toolbar_, &CRSS_RightTopToolBarWnd::EscapePressed, &list_, [this] { list_.setFocus(); });
}

void CRSS_RightTopContainer::SetUpList() {
  list_.setObjectName(QString::number(kListId));
  list_.setAccessibleName(SkinText(desk_.GetSkin(), kTextListName));
  list_.setFrameShape(QFrame::NoFrame);
  list_.setModel(&model_);
  list_.setItemDelegate(NewDelegate(false));
  list_.SetColumnWidths({30, 278, 100, 100});
  const auto tellEmpty = [this] { list_.SetEmptyText(EmptyText()); };
  connect(&model_, &QAbstractItemModel::modelReset, this, tellEmpty);
  connect(&model_, &QAbstractItemModel::rowsRemoved, this, tellEmpty);
  connect(&model_, &QAbstractItemModel::rowsInserted, this, tellEmpty);
  if (desk_.GetSkin().Config().GetListPlace() != ListPlace::Default) {
    const int heading = list_.header()->sectionSizeHint(kReadColumn);
    list_.setColumnWidth(kReadColumn, std::max(heading, list_.columnWidth(kReadColumn)));
    FillRoom(list_, kTitleColumn);
  }
  list_.SetRightPressSelects(!isCareful_);
  if (isCareful_) {
    list_.SetDragged([this](const QModelIndex& row) { return commands_.Dragged(row.row()); });
  }
  setFocusProxy(&list_);
  const auto awaitPause = [this] {
    if (desk_.State().isUnreadOnly) pause_.start();
  };
  connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this, awaitPause);
  connect(&model_, &QAbstractItemModel::dataChanged, this, awaitPause);
  connect(&list_, &CVxListCtrl::RowClicked, this, &CRSS_RightTopContainer::ShowClicked);
  connect(&list_, &CVxListCtrl::RowReached, this, [this] { commands_.FollowKeys(); });
  connect(&list_, &CVxListCtrl::DroppedNowhere, this,
          [this] { desk_.ReportMessage(GetLabel(desk_.GetSkin(), kLabelDropNowhere)); });
  connect(&list_, &CVxListCtrl::MenuRequested, this, &CRSS_RightTopContainer::OpenMenu);
  connect(&list_, &CVxListCtrl::SortRequested, this, [this](int column, Qt::SortOrder order) {
    SortKeepingPosition(list_, model_, column, order);
  });
}

QAbstractItemDelegate* CRSS_RightTopContainer::NewDelegate(bool hasTwoLines) {
  const QColor found = SkinColor(desk_.GetSkin(), kColorFound);
  if (hasTwoLines) return new TwoLineDelegate(model_, found, &list_);
  return new PostDelegate(model_, found, &list_);
}

void CRSS_RightTopContainer::SetTwoLines(bool areTwo) {
  if (list_.isHeaderHidden() == areTwo) return;
  const bool isCurrentSeen =
      list_.viewport()->rect().intersects(list_.visualRect(list_.currentIndex()));
  const ListViewState place = SaveViewState(list_, model_);
  model_.SetTwoLines(areTwo);
  delete list_.itemDelegate();
  list_.setItemDelegate(NewDelegate(areTwo));
  list_.SetOneColumn(areTwo ? std::optional(kTitleColumn) : std::nullopt);
  RestoreViewState(list_, model_, place);
  if (isCurrentSeen) list_.scrollTo(list_.currentIndex());
}

void CRSS_RightTopContainer::SetUpKeys() {
  const auto onListKey = [this](int command, auto run) {
    OnKeysOf(command, list_, run, Qt::WidgetShortcut);
  };
  onListKey(kCommandShowPost, [this] { commands_.ShowCurrent(); });
  onListKey(kCommandSelectAll, [this] { list_.selectAll(); });
  OnKeysOf(kCommandFocusSearch, *this, [this] { FocusSearch(); });
}

void CRSS_RightTopContainer::Fill(PostList list) {
  webSearch_.Cancel();
  textSearcher_.Cancel();
  NoteFilled(list);
  commands_.ForgetShown();
  model_.Fill(std::move(list), FilterFor({}));
  list_.ClearSorting();
  list_.scrollToTop();
  toolbar_.SetResultCount(filled_.areSearchResults ? model_.rowCount() : -1, filled_.hasMore);
}

void CRSS_RightTopContainer::NoteFilled(const PostList& list) {
  filled_ = {.areScrapPosts = list.areScrapPosts,
             .areSearchResults = list.areSearchResults,
             .hasMore = list.hasMore,
             .areFromWeb = list.areFromWeb,
             .whenEmpty = list.whenEmpty,
             .word = list.word,
             .marked = list.marked};
  desk_.State().marked = list.marked;
}

QString CRSS_RightTopContainer::EmptyText() const {
  const int hidden = model_.HiddenCount();
  const bool isSaid = model_.rowCount() == 0 && (hidden > 0 || filled_.whenEmpty != nullptr) &&
                      desk_.GetSkin().Config().SaysEmptyLists();
  if (!isSaid) return {};
  if (hidden > 0) {
    return SkinText(desk_.GetSkin(), kTextNoUnreadPosts).replace("%d", QString::number(hidden));
  }
  return SkinText(desk_.GetSkin(), filled_.whenEmpty)
      .replace("%s", ToLine(desk_.GetStore().TextCodePage(), filled_.word));
}

void CRSS_RightTopContainer::Append(PostList list) {
  const bool wasSearched = list.areSearchResults;
  AppendKeepingPosition(list_, model_, std::move(list));
  toolbar_.SetResultCount(wasSearched ? model_.rowCount() : -1);
}

void CRSS_RightTopContainer::Refill(PostList list) {
  if (model_.Shows(list)) return;
  NoteFilled(list);
  const ListViewState place = SaveViewState(list_, model_);
  model_.Refill(std::move(list), FilterFor(Held()));
  RestoreViewState(list_, model_, place);
}

void CRSS_RightTopContainer::FollowUnreadOnly() {
  toolbar_.SetUnreadOnly(desk_.State().isUnreadOnly);
  const ListViewState place = SaveViewState(list_, model_);
  model_.Filter(FilterFor(Held()));
  RestoreViewState(list_, model_, place);
}

// What was searched for is shown, read or not.
PostFilter CRSS_RightTopContainer::FilterFor(std::unordered_set<int> kept) const {
  const bool wasSearched = filled_.areSearchResults || filled_.areFromWeb;
  return {.isUnreadOnly = desk_.State().isUnreadOnly && !wasSearched, .kept = std::move(kept)};
}

// The ids of the posts that the user has not left.
std::unordered_set<int> CRSS_RightTopContainer::Held() const {
  std::unordered_set<int> held;
  for (const int row : list_.SelectedRows()) held.insert(model_.IdAt(row));
  if (list_.currentIndex().isValid()) held.insert(model_.IdAt(list_.currentIndex().row()));
  if (const auto shown = commands_.Shown()) held.insert(*shown);
  return held;
}

void CRSS_RightTopContainer::HideLeft() { HideKeepingPosition(list_, model_, FilterFor(Held())); }

ListMemory CRSS_RightTopContainer::Memory() const {
  ListMemory memory{.columnWidths = list_.ColumnWidths(),
                    .scope = static_cast<int>(toolbar_.Scope()),
                    .sortColumn = model_.SortedBy().column,
                    .isDescending = model_.SortedBy().order == Qt::DescendingOrder};
  const QModelIndex top = list_.indexAt({0, 0});
  if (top.isValid()) memory.top = model_.IdAt(top.row());
  if (list_.currentIndex().isValid()) memory.current = model_.IdAt(list_.currentIndex().row());
  return memory;
}

void CRSS_RightTopContainer::Recall(const ListMemory& memory) {
  const int columns = std::min(model_.columnCount(), static_cast<int>(memory.columnWidths.size()));
  for (int column = 0; column < columns; ++column) {
    const int width = memory.columnWidths[static_cast<std::size_t>(column)];
    if (width > 0) list_.setColumnWidth(column, width);
  }
  toolbar_.SetScope(memory.scope);
}

void CRSS_RightTopContainer::RecallPlace(const ListMemory& memory) {
  model_.Filter(FilterFor({memory.current}));
  if (memory.sortColumn >= 0) {
    list_.header()->setSortIndicator(
        memory.sortColumn, memory.isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
  }
  RestoreViewState(
      list_, model_,
      {.selected = {memory.current}, .visible = {memory.top}, .current = memory.current});
}

PostList CRSS_RightTopContainer::Take() {
  PostList list = filled_;
  list.posts = model_.Take();
  return list;
}

std::optional<PostRow> CRSS_RightTopContainer::Find(int postId) const {
  const std::vector<int> rows = model_.RowsOf({&postId, 1});
  return rows.empty() ? std::nullopt : std::optional(model_.At(rows.front()));
}

void CRSS_RightTopContainer::Reread(const PostIds& added) {
  const std::vector<int> listed = model_.Ids();
  PostIds stored = StoredIds(listed, filled_.areScrapPosts);
  stored.posts.insert(stored.posts.end(), added.posts.begin(), added.posts.end());
  stored.saved.insert(stored.saved.end(), added.saved.begin(), added.saved.end());
  const ListMode mode = desk_.State().listMode;
  if (mode == ListMode::WebDirectory || stored.AreEmpty()) return;
  PostList list = filled_;
  if (!FindPosts(desk_.GetStore(), stored, list.posts)) return;
  if (!list.marked.empty()) PutInOrder(listed, list.posts);
  Refill(std::move(list));
  toolbar_.SetResultCount(mode == ListMode::Selection ? model_.rowCount() : -1, filled_.hasMore);
}

void CRSS_RightTopContainer::ShowClicked(int row) {
  const bool isTakenOut = !list_.selectionModel()->isSelected(model_.index(row, 0));  // with Ctrl
  if (isCareful_ && isTakenOut) return;
  // Each click counts as one post read, even if the post was read before: the total is used only to
  // announce new posts.
  --desk_.State().unreadTotal;
  Show(row);
}

void CRSS_RightTopContainer::Show(int index) { commands_.Show(index); }

void CRSS_RightTopContainer::ShowFirst(FirstPost shown) {
  const int rows = model_.rowCount();
  if (shown == FirstPost::Glimpse) return commands_.Glimpse(0);
  int row = -1;
  if (shown == FirstPost::FirstUnread) row = model_.FindUnread(-1, true);
  if (shown == FirstPost::LastUnread) row = model_.FindUnread(rows, false);
  Show(row < 0 && rows > 0 ? 0 : row);
}

void CRSS_RightTopContainer::GoToUnread(bool forward) {
  if (!webSearch_.IsRunning()) commands_.GoToUnread(forward);
}

void CRSS_RightTopContainer::OpenMenu(const QModelIndex& row, const QPoint& place) {
  const auto menu = commands_.ContextMenu(row);
  if (!menu) return;
  std::optional<MenuPost> post;
  if (row.isValid()) post = MenuPost{row, model_.IdAt(row.row())};
  list_.MarkMenuRow(row);
  const QMenu& shown = ShowMenu(*menu, desk_.GetSkin(), place, this,
                                [this, post](int command) { commands_.Run(command, post); });
  connect(&shown, &QMenu::aboutToHide, &list_, [this] { list_.MarkMenuRow({}); });
}

void CRSS_RightTopContainer::FocusSearch() { toolbar_.FocusWord(); }

void CRSS_RightTopContainer::Search() {
  const std::string word = toolbar_.Word();
  if (word.empty()) {
    desk_.ShowTextMessage(kSectionTexts, kTextSearchEmpty, MsgBoxKind::Notice);
    return;  // the pane may have been deleted
  }
  webSearch_.Cancel();
  textSearcher_.Cancel();
  switch (toolbar_.Scope()) {
    case SearchScope::Web:
      return webSearch_.Begin(word);
    case SearchScope::Local:
      return SearchStore(word);
    case SearchScope::Text:
      return textSearcher_.Begin(word);
  }
}

void CRSS_RightTopContainer::SearchStore(const std::string& word) {
  PostList found{.areSearchResults = true, .whenEmpty = kTextNothingFound, .word = word};
  if (!SearchPosts(desk_.GetStore(), word, found.posts)) return;
  reading_.ListPosts(ListMode::Selection, std::move(found));
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
