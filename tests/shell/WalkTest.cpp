// Random walks: whatever the user does, tree and list show what the database holds.
#include <random>

#include "shell/WalkFixture.h"

namespace feedloom {
namespace {

// The host of every other walk has wishes.
struct Walk : WalkFixture, testing::WithParamInterface<unsigned> {
  Walk() : WalkFixture(GetParam() % 2 == 0) { AnswerAll(); }
  ~Walk() override {
    if (HasFailure()) ADD_FAILURE() << story_.size() << ":\n" << story_.join("\n").toStdString();
  }

  // Chance.
  int Pick(qsizetype count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  template <typename Choices>
  auto PickOf(const Choices& choices) {
    return choices.begin()[Pick(static_cast<qsizetype>(choices.size()))];
  }
  QString NewName() { return QString("n%1").arg(++names_); }

  // Dialogs get new names and any choice, and are confirmed, mostly.
  void AnswerAll() {
    answers_.Next([this](QDialog& dialog) {
      AnswerAll();
      // Settings are no matter here, and what comes from elsewhere comes at any time.
      for (const char* const foreign :
           {"QFileDialog", "feedloom::CCtrlPanelDlg", "feedloom::CRSS_OpmlDlg"})
        if (dialog.inherits(foreign)) return dialog.reject();
      if (Pick(4) == 0) return dialog.reject();
      if (dialog.inherits("feedloom::CRSS_ChannelAddDlg")) return Subscribe(dialog);
      const bool isSearch = dialog.inherits("feedloom::CRSS_SearchDlg");
      for (auto* const box : dialog.findChildren<QLineEdit*>())
        box->setText(isSearch ? "1" : NewName());
      for (auto* const box : dialog.findChildren<QComboBox*>())
        if (box->count() > 0) box->setCurrentIndex(Pick(box->count()));
      dialog.accept();
    });
  }
  void Subscribe(QDialog& dialog) {
    if (isHeld_) return dialog.reject();
    const auto boxes = dialog.findChildren<QLineEdit*>();
    boxes[0]->setText(QString::fromStdString(server_.Url(PathOf(AddFeed()))));
    dialog.findChild<QAbstractButton*>()->click();
    EXPECT_TRUE(WaitUntil([&] { return boxes[1]->isEnabled(); }));
    boxes[1]->setText(NewName());
    dialog.accept();
    isRefreshing_ = !dialog.isVisible();
  }

  // The place of any row, which comes into sight; none in an empty view.
  QModelIndex PickRow(QTreeView& view) {
    QModelIndexList rows;
    for (auto row = view.model()->index(0, 0); row.isValid(); row = view.indexBelow(row))
      if (!view.isRowHidden(row.row(), row.parent())) rows << row;
    if (rows.isEmpty()) return {};
    const QModelIndex row = PickOf(rows);
    view.scrollTo(row);
    Tell(row.siblingAtColumn(&view == &List() ? kTitleColumn : 0).data().toString());
    return row;
  }
  void Tell(const QString& detail) { story_.back() += " " + detail; }

  void Click(QTreeView& view) {
    const std::array keys{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier};
    const QModelIndex row = PickRow(view);
    const auto key = PickOf(keys);
    Tell(QKeySequence(static_cast<int>(key)).toString());
    if (row.isValid())
      QTest::mouseClick(view.viewport(), Qt::LeftButton, key, view.visualRect(row).center());
  }
  void OpenMenu(QTreeView& view) {
    const QModelIndex row = PickRow(view);
    if (!row.isValid()) return;
    const QPoint place = view.visualRect(row).center();
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(view.viewport(), &event);
    Choose(view.model()->rowCount(row) > 0);
  }
  // Anything in the menu that is open, or nothing.
  void Choose(bool isOfSomeChannels) {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    QList<QAction*> actions = menu->findChildren<QAction*>();
    actions.removeIf(
        [](auto* action) { return !action->isEnabled() || !action->data().isValid(); });
    if (!actions.isEmpty() && Pick(4) > 0) {
      QAction& chosen = *PickOf(actions);
      Tell(chosen.text());
      const int command = chosen.data().toInt();
      isRefreshing_ |= command == kCommandRefreshChannel ||
                       (command == kCommandRefreshGroup && isOfSomeChannels);
      chosen.trigger();
    }
    menu->close();
  }
  void PressOneOf(std::initializer_list<const char*> keys) {
    const char* const key = PickOf(keys);
    Tell(key);
    Press(key);
    if (!QString(key).endsWith("Space")) return;
    bool hasScrolled = false;  // the page answers in turn
    frame_->findChild<QWebEngineView*>()->page()->toPlainText([&](auto) { hasScrolled = true; });
    EXPECT_TRUE(WaitUntil([&] { return hasScrolled; }));
  }

  // What a user does.
  void ClickTree() { Click(Tree()); }
  void ClickList() { Click(List()); }
  void OpenTreeMenu() { OpenMenu(Tree()); }
  void OpenListMenu() { OpenMenu(List()); }
  void PressKeyInTree() {
    Tree().setFocus();
    PressOneOf({"Up", "Down", "Down", "Home", "End", "Left", "Right", "Return", "Delete", "Alt+Up",
                "Alt+Down"});
  }
  void PressKeyInList() {
    List().setFocus();
    PressOneOf({"Up", "Down", "Down", "Home", "End", "Shift+Down", "Shift+End", "Ctrl+Down",
                "Ctrl+Space", "Ctrl+A", "PgDown", "Return", "Delete", "Alt+Up, Space"});
  }
  void PressAnyKey() {
    PressOneOf({"N", "P", "J", "K", "M", "S", "U", "Space", "F6", "Shift+F6", "F1"});
  }
  void PressUndo() { Press("Ctrl+Z"); }
  void OpenMainMenu() {
    Columns().widget(0)->findChild<QAbstractButton*>()->click();
    Choose(false);
  }
  void Search() {
    QWidget& pane = *dynamic_cast<QSplitter&>(*Columns().widget(1)).widget(0);
    pane.findChild<QComboBox*>()->setCurrentIndex(1);
    auto& word = *pane.findChild<QLineEdit*>();
    word.setText(PickOf(QStringList{".", "1", "f2"}));
    Tell(word.text());
    QTest::keyClick(&word, Qt::Key_Return);
  }
  void SortList() {
    QTest::mouseClick(List().header()->viewport(), Qt::LeftButton, {}, {10 + Pick(400), 5});
  }
  void BeginRefresh() {
    if (isHeld_ || Sql("select count(*) from TB_CHANNEL") == "0") return;
    isHeld_ = isRefreshing_ = true;
    for (int feed = 1; feed <= static_cast<int>(published_.size()); ++feed)
      server_.Hang(PathOf(feed));
    Press("Shift+F5");
  }
  void LetPostsArrive() {
    BeginRefresh();
    Answer();
  }
  void Restart() {
    Destroy();
    host_.reset();
    Answer();
    isRefreshing_ = false;
    numbers_.clear();
    Begin();
  }

  void Answer() {
    isHeld_ = false;
    for (int feed = 1; feed <= static_cast<int>(published_.size()); ++feed) {
      published_[static_cast<std::size_t>(feed) - 1] += Pick(3);
      Pick(9) == 0 ? server_.Fail(PathOf(feed), 500) : ServeFeed(feed);
    }
  }
  void Begin() {
    CreateFrame();
    for (auto* const timer : Rests()) timer->setInterval(0);
  }
  QList<QTimer*> Rests() {
    return frame_->findChildren<QTimer*>(QRegularExpression("keyRest|userPause"));
  }
  // What was begun ends, unless the servers do not answer.
  void Settle() {
    const auto rests = Rests();
    EXPECT_TRUE(WaitUntil([&] { return std::ranges::none_of(rests, &QTimer::isActive); }));
    QCoreApplication::processEvents();
    if (isHeld_ || !std::exchange(isRefreshing_, false)) return;
    EXPECT_TRUE(WaitUntil([this] { return std::erase(numbers_, kMessageRefreshEnded) > 0; }));
    EXPECT_TRUE(WaitUntil([this] { return Difference().empty(); }));
  }
  void Act();

  std::mt19937 random_{GetParam()};
  QStringList story_;
  int names_ = 0;
  bool isRefreshing_ = false;  // a refresh was begun
  bool isHeld_ = false;        // the servers do not answer it
};

struct Action {
  const char* name;
  int weight;
  void (Walk::*act)();
};
constexpr Action kActions[] = {{"click tree", 10, &Walk::ClickTree},
                               {"click list", 12, &Walk::ClickList},
                               {"tree menu", 12, &Walk::OpenTreeMenu},
                               {"list menu", 8, &Walk::OpenListMenu},
                               {"tree key", 16, &Walk::PressKeyInTree},
                               {"list key", 18, &Walk::PressKeyInList},
                               {"key", 14, &Walk::PressAnyKey},
                               {"undo", 8, &Walk::PressUndo},
                               {"menu", 5, &Walk::OpenMainMenu},
                               {"search", 6, &Walk::Search},
                               {"sort", 2, &Walk::SortList},
                               {"refresh", 2, &Walk::BeginRefresh},
                               {"arrivals", 4, &Walk::LetPostsArrive},
                               {"restart", 1, &Walk::Restart}};

void Walk::Act() {
  std::vector<const Action*> chances;
  for (const Action& action : kActions)
    chances.insert(chances.end(), static_cast<std::size_t>(action.weight), &action);
  const Action& action = *PickOf(chances);
  story_ << action.name;
  (this->*action.act)();
  Settle();
}

// A walk that fails can be walked again, with a look after each step, as far as FEEDLOOM_STEPS.
TEST_P(Walk, LeavesTreeAndListWithWhatTheDatabaseHolds) {
  Begin();
  const int given = qEnvironmentVariableIntValue("FEEDLOOM_STEPS");
  for (int step = 1; step <= (given > 0 ? given : 200); ++step) {
    Act();
    if (given == 0 && step % 5 != 0) continue;
    std::string difference = Difference();
    const auto [isOffered, isKept] = Undoable();
    if (isOffered != isKept) difference += "\nundo";
    EXPECT_EQ(difference, "");
    if (HasFailure()) break;
  }
}

INSTANTIATE_TEST_SUITE_P(OfTen, Walk, testing::Range(1u, 11u));

}  // namespace
}  // namespace feedloom
