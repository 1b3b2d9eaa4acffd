// A frame for the tests of one pane: a real store, the shipped skin, and a record of what the pane
// asked for.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "kit/ShippedSkin.h"
#include "store/StoreKit.h"
#include "ui/Frame.h"

namespace feedloom {

class FakeFrame : public Frame {
 public:
  Store& TheStore() override { return db.Get(); }
  const Skin& TheSkin() const override { return skin.Get(); }
  SharedState& State() override { return state; }
  void ReportMessage(std::string_view text) override { messages.emplace_back(text); }
  MsgBoxAnswer ShowTextMessage(const char*, const char* key, MsgBoxKind) override {
    questions.emplace_back(key);
    return nextAnswer;
  }
  void QueueRefresh(std::vector<RefreshEntry> entries) override {
    for (RefreshEntry& entry : entries) queue.Append(std::move(entry));
  }
  void StartRefresh() override { ++refreshes; }
  void ListPosts(ListMode mode, PostList list) override {
    state.listMode = mode;
    lists.push_back(std::move(list));
  }
  void RelistPosts(PostList list) override { relists.push_back(std::move(list)); }
  void ShowPost(const PostRow& post) override { shown.push_back(post.title); }
  void ShowMainPage() override { shown.emplace_back("(main page)"); }
  void PostWasRead(int ownerId, bool isScrapPost) override {
    read.emplace_back(ownerId, isScrapPost);
  }

  TestStore db;
  ShippedSkin skin;
  SharedState state;
  MsgBoxAnswer nextAnswer = MsgBoxAnswer::Declined;

  std::vector<std::string> messages;
  std::vector<std::string> questions;  // keys
  RefreshQueue queue;
  int refreshes = 0;
  std::vector<PostList> lists;
  std::vector<PostList> relists;
  std::vector<std::string> shown;  // titles
  std::vector<std::pair<int, bool>> read;
};

}  // namespace feedloom
