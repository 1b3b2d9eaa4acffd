#include "shell/ModuleFixture.h"

#include <dlfcn.h>
#include <fmt/core.h>

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>
#include <QWebEngineView>

#include "kit/ManualClock.h"
#include "store/Connection.h"

namespace feedloom {
namespace {

// A host's callbacks are plain functions, so what they answer with stands here.
HostLookup theLookup;
CodePage theCodePage = CodePage::Korean();

std::string HostText(const char* section, const char* key) {
  return theLookup.HostGetText(section, key);
}

std::string HostSkinValue(const char* section, const char* key) {
  return theLookup.HostGetSkinValue(section, key);
}

void CollectLabels(const QAbstractItemModel& model, const QModelIndex& parent,
                   const QString& indent, QStringList& labels) {
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex index = model.index(row, 0, parent);
    labels << indent + index.data().toString();
    CollectLabels(model, index, indent + "  ", labels);
  }
}

}  // namespace

RecordingHost::RecordingHost() {
  auto* const pane = new QWidget;
  auto* const layout = new QVBoxLayout(pane);
  layout->setContentsMargins(0, 0, 0, 0);
  setCentralWidget(pane);
  pane->installEventFilter(this);
  resize(1000, 700);
}

bool RecordingHost::event(QEvent* event) {
  if (event->type() != WindowMessage::kType) return QMainWindow::event(event);
  windowMessages.push_back(static_cast<WindowMessage*>(event)->number);
  return true;
}

bool RecordingHost::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != WindowMessage::kType) return QMainWindow::eventFilter(watched, event);
  const auto& message = static_cast<WindowMessage&>(*event);
  EXPECT_EQ(message.number, kMessageShowText);
  texts.push_back(theCodePage.ToUtf8(*reinterpret_cast<const std::string*>(message.lParam)));
  return true;
}

ModuleFixture::ModuleFixture() : host_(std::make_unique<RecordingHost>()) {
  static ManualClock noPauses;
  store_ = std::make_unique<Store>(profile_.Paths().database, theCodePage, noPauses,
                                   [](std::string_view) {});
  theLookup = profile_.Lookup();
  profile_.LinkModule(FEEDLOOM_MODULE);
}

ModuleFixture::~ModuleFixture() {
  if (frame_ != nullptr) Destroy();
  if (module_ != nullptr) Unload();
}

void ModuleFixture::Load() {
  module_ = dlopen(profile_.Paths().module.c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module_, nullptr) << dlerror();
  create_ = reinterpret_cast<CreateFunction>(dlsym(module_, "Create"));
  destroy_ = reinterpret_cast<DestroyBtnFunction>(dlsym(module_, "DestroyBtn"));
  ASSERT_TRUE(create_ != nullptr && destroy_ != nullptr);
}

void ModuleFixture::CreateFrame() {
  if (module_ == nullptr) Load();
  host_->show();
  frame_ = create_(HostText, HostSkinValue, host_->Pane());
  ASSERT_NE(frame_, nullptr);
  host_->Pane()->layout()->addWidget(frame_);
  pagesShown_ = std::make_unique<QSignalSpy>(frame_, SIGNAL(PageShown()));
  ASSERT_TRUE(pagesShown_->wait(20'000));
}

void ModuleFixture::Destroy() {
  pagesShown_.reset();
  destroy_();
  frame_ = nullptr;
}

void ModuleFixture::Unload() {
  EXPECT_EQ(dlclose(module_), 0);
  module_ = nullptr;
}

// The module may be writing at this moment: then the database is locked, for a moment.
void ModuleFixture::Sql(const std::string& sql) {
  EXPECT_TRUE(WaitUntil([&] { return ExecuteOnce(*store_, sql); })) << sql;
}

std::string ModuleFixture::Value(const std::string& sql) {
  std::optional<ResultTable> rows;
  EXPECT_TRUE(WaitUntil([&] { return (rows = QueryOnce(*store_, sql)).has_value(); })) << sql;
  return rows && rows->Rows() > 0 ? rows->Text(0, 0) : "(none)";
}

int ModuleFixture::AddChannel(const std::string& title, const std::string& path) {
  Sql(
      fmt::format("insert into TB_CHANNEL(channel_title, channel_xmllink, channel_folderID, "
                  "channel_order) values('{}', '{}', 1, 1)",
                  title, server_.Url(path)));
  return std::stoi(Value("select max(channel_id) from TB_CHANNEL"));
}

void ModuleFixture::AddPosts(int channelId, int count) {
  Sql(fmt::format(
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < {}) insert into "
      "TB_POST(post_channelID, post_title, post_link, post_pubDate, post_desc) select {}, 'Post ' "
      "|| i, 'http://example.com/' || i, '2008-05-01 10:00:00', 'Text ' || i from n",
      count, channelId));
}

std::intptr_t ModuleFixture::Send(unsigned number, std::intptr_t wParam, std::intptr_t lParam) {
  WindowMessage message(number, wParam, lParam);
  QCoreApplication::sendEvent(frame_, &message);
  return message.result;
}

void ModuleFixture::Select(const QString& label) {
  QTreeView& tree = Tree();
  const auto found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, label, 1,
                                         Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1) << label.toStdString();
  pagesShown_->clear();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(found[0]).center());
}

// An event loop of its own, because the toolkit's helper sleeps between looks, and the browser
// engine needs the loop a hundred times for a page.
bool ModuleFixture::WaitUntil(const std::function<bool()>& isTrue, int milliseconds) {
  if (isTrue()) return true;
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (isTrue()) loop.exit(1);
  });
  look.start(5);
  QTimer::singleShot(milliseconds, &loop, [&loop] { loop.exit(0); });
  return loop.exec() == 1;
}

bool ModuleFixture::WaitForRunEnd() {
  return WaitUntil([this] {
    return !host_->windowMessages.empty() && host_->windowMessages.back() == kMessageRefreshEnded;
  });
}

QTreeView& ModuleFixture::Tree() {
  return *qobject_cast<QTreeView*>(FindByClass("CRSS_GroupTreeCtrl"));
}

QTreeView& ModuleFixture::List() { return *qobject_cast<QTreeView*>(FindByClass("CVxListCtrl")); }

QWidget* ModuleFixture::FindByClass(const char* name) {
  for (QWidget* widget : frame_->findChildren<QWidget*>()) {
    if (widget->inherits(("feedloom::" + std::string(name)).c_str())) return widget;
  }
  ADD_FAILURE() << "no " << name;
  return nullptr;
}

QStringList ModuleFixture::TreeLabels() {
  QStringList labels;
  CollectLabels(*Tree().model(), {}, {}, labels);
  return labels;
}

QStringList ModuleFixture::ListedTitles() {
  const QAbstractItemModel& model = *List().model();
  QStringList titles;
  for (int row = 0; row < model.rowCount(); ++row) titles << model.index(row, 1).data().toString();
  return titles;
}

QString ModuleFixture::PageText() {
  auto* const view = frame_->findChild<QWebEngineView*>();
  std::optional<QString> text;
  view->page()->toPlainText([&text](const QString& plain) { text = plain; });
  EXPECT_TRUE(WaitUntil([&text] { return text.has_value(); }));
  return text.value_or(QString());
}

QString ModuleFixture::NextPageText() {
  EXPECT_TRUE(WaitUntil([this] { return !pagesShown_->empty(); }));
  return PageText();
}

}  // namespace feedloom
