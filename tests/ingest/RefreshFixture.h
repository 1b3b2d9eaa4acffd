// A refresh on threads, against a real server and a real database.
#pragma once

#include <fmt/core.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "ingest/IngestKit.h"
#include "ingest/RefreshEngine.h"
#include "kit/FeedDocuments.h"

namespace feedloom {

class Refresh : public testing::Test {
 protected:
  void Begin(const RefreshLimits& limits = {}) {
    engine_.emplace(kit_.Services(), frame_, host_, limits);
  }

  // Stores a channel whose feed lies at `path` of the server, and queues it.
  int Queue(const std::string& path, int folderId = 1) {
    const int id = kit_.db.AddChannelWithPosts(folderId, path.substr(1), 0);
    QueueAgain(id, path);
    return id;
  }

  void QueueAgain(int id, const std::string& path) {
    RefreshEntry entry;
    entry.channelId = id;
    entry.folderId = 1;
    entry.title = path;
    entry.xmlLink = kit_.server.Url(path);
    engine_->Enqueue(entry);
  }

  int ServeAndQueue(const std::string& path, int items) {
    kit_.server.Serve(path, NumberedRss("Title of " + path, "http://l" + path + "/", items));
    return Queue(path);
  }

  // Runs the queue to its end.
  void RunToEnd() {
    engine_->StartRefresh();
    ASSERT_TRUE(
        host_.WaitFor([](const SentMessage& sent) { return sent.message == kMessageRefreshEnded; },
                      std::chrono::seconds(20), ++runs_));
  }

  bool FrameGot(unsigned message, std::intptr_t wParam, std::intptr_t lParam) const {
    return frame_.Count([&](const SentMessage& sent) {
      return sent == SentMessage{message, wParam, lParam};
    }) > 0;
  }

  std::string State(int id) {
    return kit_.db.Value(
        fmt::format("select channel_state from TB_CHANNEL where channel_id = {}", id));
  }

  // Refreshes a channel once more and returns how many requests its server got for it.
  int RequestsOfAnotherRun(int id, const std::string& path) {
    const int before = kit_.server.Requests(path);
    QueueAgain(id, path);
    RunToEnd();
    return kit_.server.Requests(path) - before;
  }

  // The same as the program's next start.
  int RequestsAfterAnotherStart(int id, const std::string& path) {
    engine_->Stop();
    Begin();
    return RequestsOfAnotherRun(id, path);
  }

  IngestKit kit_;
  RecordingTarget frame_;
  RecordingTarget host_;
  std::optional<RefreshEngine> engine_;
  int runs_ = 0;
};

}  // namespace feedloom
