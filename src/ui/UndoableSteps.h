#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "store/RowKey.h"
#include "store/Undo.h"

namespace feedloom {

class Desk;

// A row of the tree that is deleted, or has come back.
struct UndoableRow {
  RowKey key;
  std::string name = {};  // in the module's code page
  int unread = 0;
  bool isOpen = true;  // a folder that shows its channels
};

// The user's deletions and markings, of which the last one can be undone. Texts are in the module's
// code page. Interface thread only.
class UndoableSteps {
 public:
  struct Hooks {
    // A step can be undone from now on. `isDone` is false when the store has reported a failure,
    // behind which only a part of the step may be done.
    std::function<void(const std::string& name, bool isDone)> begin;
    // The offer has lasted long enough, or there is no longer a step that can be undone.
    std::function<void()> end;
    // Brings the counts up to date before a step is undone.
    std::function<void()> count;
    // Shows what has come back, as Reading::ShowUndone.
    std::function<void(const std::optional<UndoableRow>& row, const PostIds& posts)> show;
  };

  // `desk` must outlive the object. A step is offered for the time `offered`, and can be undone
  // after it too.
  UndoableSteps(Desk& desk, Hooks hooks,
                std::chrono::milliseconds offered = std::chrono::seconds(10));

  // Run the operation of the store, and keep what it changes. Return false after a failure of the
  // operation.
  bool MarkPosts(const PostIds& posts, int status);
  bool DeletePosts(const PostIds& posts);
  bool MarkRow(const RowKey& row, int status);
  // A folder, a channel or a cabinet. The caller lowers SharedState::unreadTotal.
  bool DeleteRow(const UndoableRow& row);

  // What the step is called that can be undone; nullopt without one.
  std::optional<std::string> Name() const;
  // Undoes it, and tells the user. After a failure of the store it can be tried again. Does nothing
  // without a step.
  void Undo();

 private:
  struct Step {
    int id = 0;
    std::string name;
    std::optional<UndoableRow> row = {};
    PostIds posts = {};  // of the list
    int listing = 0;     // SharedState::listings and
    int announced = 0;   // SharedState::announcedTotal at the step
  };

  template <typename Operation>
  bool Run(const std::optional<KeptStep>& kept, Step step, Operation operation);
  std::string MarkName(const std::optional<KeptStep>& kept, int status) const;
  void Forget();
  void RestoreTotals(const Step& step);

  Desk& desk_;
  const Hooks hooks_;
  QTimer offer_;
  std::optional<Step> step_;
};

}  // namespace feedloom
