// The module as a host has it: loaded through a link in a real profile, in a real window off
// screen, which a user works with.
#pragma once

#include <dlfcn.h>
#include <fmt/core.h>

#include <QSignalSpy>
#include <QWebEngineView>

#include "kit/FeedServer.h"
#include "kit/ManualClock.h"
#include "kit/TestProfile.h"
#include "look/DialogAnswers.h"
#include "shell/Feedloom.h"
#include "store/Connection.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/Subscribing.h"

namespace feedloom {

struct ModuleFixture : QObject, testing::Test {
  ModuleFixture() {
    lookup_ = profile_.Lookup();
    profile_.LinkModule(FEEDLOOM_MODULE);
    std::filesystem::remove(profileLink_);
    std::filesystem::create_directory_symlink(profile_.Paths().dir, profileLink_);
    void* const module =
        dlopen((profileLink_ + "/module/feedloom.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) throw std::runtime_error(dlerror());
    create_ = reinterpret_cast<CreateFunction>(dlsym(module, "Create"));
    destroy_ = reinterpret_cast<DestroyBtnFunction>(dlsym(module, "DestroyBtn"));
  }
  QWidget* Create(QWidget* parent) {
    return create_([](auto section, auto key) { return lookup_.HostGetText(section, key); },
                   [](auto section, auto key) { return lookup_.HostGetSkinValue(section, key); },
                   parent);
  }
  void CreateFrame() {
    host_ = std::make_unique<QWidget>();
    pane_ = new QWidget(host_.get());
    host_->resize(1000, 700);
    pane_->resize(host_->size());
    for (QWidget* const window : {host_.get(), pane_}) window->installEventFilter(this);
    host_->show();
    frame_ = Create(pane_);
    ASSERT_TRUE(frame_ != nullptr && frame_->isVisible());
    frame_->resize(pane_->size());
    QSignalSpy shown(frame_, SIGNAL(PageShown()));
    ASSERT_TRUE(shown.wait(20'000));
    host_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(host_.get()));
    frame_->setFocus();
  }
  void Destroy() {
    frame_ = nullptr;
    destroy_();
  }

  // Returns the first value. Waits while the module locks the database.
  std::string Sql(const std::string& sql) {
    std::optional<ResultTable> rows;
    EXPECT_TRUE(WaitUntil([&] { return (rows = QueryOnce(store_, sql)).has_value(); })) << sql;
    return rows && rows->Rows() > 0 ? rows->Text(0, 0) : "(none)";
  }
  // Unread ones: "Post 1" with "Text 1", and so on.
  void AddPosts(int channelId, int count) {
    Sql(
        fmt::format("insert into TB_POST(post_channelID, post_title, post_link, post_pubDate, "
                    "post_desc) with recursive n(i) as (select 1 union all select i + 1 from n "
                    "where i < {}) select {}, 'Post ' || i, 'http://example.com/' || i, "
                    "'2008-05-01 10:00:00', 'Text ' || i from n",
                    count, channelId));
  }

  void Send(unsigned number, std::intptr_t wParam = 0, std::intptr_t lParam = 0) {
    WindowMessage message(number, wParam, lParam);
    QCoreApplication::sendEvent(frame_, &message);
  }
  // What the end of a refresh of these channels brings.
  void Refresh(std::initializer_list<int> channels) {
    const auto told = texts_.size();
    for (const int id : channels) Send(kMessageChannelResult, kChannelRefreshed, id);
    EXPECT_TRUE(WaitUntil([&] { return texts_.size() == told + channels.size(); }));
  }
  void Select(const QString& label) {
    const auto found = Tree().model()->match(Tree().model()->index(0, 0), Qt::DisplayRole, label, 1,
                                             Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1) << label.toStdString();
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Tree().visualRect(found[0]).center());
  }
  // Keys, one after the other, where the keyboard is: "F6, Shift+F10".
  void Press(const QString& keys) {
    for (const QString& key : keys.split(", ")) {
      EXPECT_TRUE(WaitUntil([this] {
        host_->activateWindow();
        return QApplication::focusWidget() != nullptr;
      }));
      QTest::keySequence(QApplication::focusWidget(), QKeySequence(key));
    }
  }
  // Consents to the next dialog, or message box, with a text, if any.
  void Answer(const std::string& text = "") {
    answers_.Next([text](QDialog& dialog) {
      if (!text.empty()) dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(text));
      dialog.accept();
    });
  }

  // The toolkit's own helper sleeps between looks; the browser engine needs the event loop.
  static bool WaitUntil(const std::function<bool()>& isTrue) {
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] { isTrue() ? loop.exit(1) : void(); });
    look.start(5);
    QTimer::singleShot(20'000, &loop, [&loop] { loop.exit(0); });
    return isTrue() || loop.exec() == 1;
  }
  // Whether the host hears of the begin and the end of one refresh, and of nothing else.
  bool WaitForRun() {
    const std::vector<unsigned> run{kMessageRefreshBegan, kMessageRefreshEnded};
    return WaitUntil([&] { return numbers_ == run; }) && (numbers_.clear(), true);
  }

  QSplitter& Columns() { return dynamic_cast<QSplitter&>(*frame_); }
  QTreeView& Tree() { return dynamic_cast<QTreeView&>(*Columns().widget(0)->focusProxy()); }
  QTreeView& List() {
    return dynamic_cast<QTreeView&>(
        *dynamic_cast<QSplitter&>(*Columns().widget(1)).widget(0)->focusProxy());
  }
  static QStringList Rows(const QTreeView& view, int column) {
    QStringList rows;
    for (auto row = view.model()->index(0, column); row.isValid(); row = view.indexBelow(row))
      rows << (row.parent().isValid() ? "  " : "") + row.data().toString();
    return rows;
  }
  QStringList Labels() { return Rows(Tree(), 0); }
  QStringList Titles() { return Rows(List(), 1); }
  // The page with this text comes on screen; the one before may be shown late.
  bool Shows(const QString& text) {
    const auto shown = std::make_shared<QString>();
    return WaitUntil([&] {
      frame_->findChild<QWebEngineView*>()->page()->toPlainText(
          [shown](const QString& plain) { *shown = plain; });
      return shown->contains(text);
    });
  }
  int UnreadTotal() { return The<Desk>().State().unreadTotal; }
  // The part of the frame that it is for the panes.
  template <typename Part>
  Part& The() {
    return dynamic_cast<Part&>(*frame_);
  }

  FeedServer server_;
  TestProfile profile_;
  DialogAnswers answers_;
  std::vector<std::string> texts_;  // the status texts that the host was sent, as UTF-8
  std::vector<unsigned> numbers_;   // the messages that its top-level window was sent
  QList<int> counts_;               // of unread posts, and
  QStringList news_;                // the new posts that it was told
  std::unique_ptr<QWidget> host_;
  QWidget* pane_ = nullptr;
  QWidget* frame_ = nullptr;
  CreateFunction create_ = nullptr;
  DestroyBtnFunction destroy_ = nullptr;
  static inline HostLookup lookup_;  // a host's callbacks are plain functions

  bool eventFilter(QObject* window, QEvent* event) override {
    if (event->type() != WindowMessage::kType) return false;
    const auto* const message = static_cast<WindowMessage*>(event);
    if (message->number == kMessageRefreshProgress) return true;
    if (message->number == kMessageUnreadCount) return counts_ << int(message->wParam), true;
    if (message->number == kMessageNewPosts) {
      const auto& lines = *reinterpret_cast<const std::string*>(message->lParam);
      news_ << QString("%1: %2").arg(message->wParam).arg(lines.c_str());
      return true;
    }
    if (window == host_.get()) numbers_.push_back(message->number);
    if (message->number == kMessageShowText) {
      const auto& text = *reinterpret_cast<const std::string*>(message->lParam);
      texts_.push_back(CodePage::Korean().ToUtf8(text));
    }
    return true;
  }

  // A process loads the module once, and the module finds its profile by the path that it was
  // loaded from: the profiles of all tests stand at this one.
  static inline const TempFolder folder_;
  const std::string profileLink_ = folder_.File("profile");
  ManualClock noPauses_;
  Store store_{profile_.Paths().database, CodePage::Korean(), noPauses_, [](auto) {}};
};

}  // namespace feedloom
