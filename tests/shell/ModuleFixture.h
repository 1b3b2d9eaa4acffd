// The module as a host has it: loaded through the link in a real profile, in a real window off
// screen.
#pragma once

#include <gtest/gtest.h>

#include <QMainWindow>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kit/FeedServer.h"
#include "kit/TestProfile.h"
#include "shell/Feedloom.h"
#include "store/Store.h"

class QSignalSpy;
class QTreeView;

namespace feedloom {

// The host's window, which keeps what the module sends.
class RecordingHost : public QMainWindow {
 public:
  RecordingHost();

  QWidget* Pane() { return centralWidget(); }

  std::vector<std::string> texts;        // of the messages that carry one, as UTF-8
  std::vector<unsigned> windowMessages;  // to the main window

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

class ModuleFixture : public testing::Test {
 protected:
  ModuleFixture();
  ~ModuleFixture() override;

  // The life cycle.
  void Load();
  void CreateFrame();  // loads first; waits for the main page
  void Destroy();
  void Unload();

  // The profile's content, past the module.
  void Sql(const std::string& sql);
  std::string Value(const std::string& sql);
  // Subscribes to `path` of the server; the channel's id. A name is ASCII.
  int AddChannel(const std::string& title, const std::string& path);
  void AddPosts(int channelId, int count);  // "Post 1" ..., unread

  // What a host and a user do.
  std::intptr_t Send(unsigned number, std::intptr_t wParam = 0, std::intptr_t lParam = 0);
  void Select(const QString& label);  // clicks the tree's row
  bool WaitUntil(const std::function<bool()>& isTrue, int milliseconds = 20'000);
  bool WaitForRunEnd();

  // What is to be seen.
  QTreeView& Tree();
  QTreeView& List();
  QStringList TreeLabels();
  QStringList ListedTitles();
  QString PageText();
  QString NextPageText();  // of the page that the last Select leads to

  FeedServer server_;
  TestProfile profile_;
  std::unique_ptr<RecordingHost> host_;
  QWidget* frame_ = nullptr;
  CreateFunction create_ = nullptr;
  DestroyBtnFunction destroy_ = nullptr;

 private:
  QWidget* FindByClass(const char* name);

  void* module_ = nullptr;
  std::unique_ptr<Store> store_;
  std::unique_ptr<QSignalSpy> pagesShown_;  // since the last Select
};

}  // namespace feedloom
