// What the list does to posts, by a click, a key or its menu.
#pragma once

#include <optional>
#include <vector>

#include "ui/Frame.h"
#include "ui/Menus.h"

namespace feedloom {

class CVxListCtrl;
class PostListModel;

// Commands act on the selected rows, and do nothing where their rows or their action are missing.
// Those that change posts leave the web directory's alone, which are not the store's; when the
// store refuses something (it reports that itself) the list and the counts are read again. The
// object may be gone when a command that asks the user something returns.
class PostCommands {
 public:
  // All three outlive the object; `list` shows `model`.
  PostCommands(Frame& frame, PostListModel& model, CVxListCtrl& list)
      : frame_(frame), model_(model), list_(list) {}

  // Has the browser show the post of row `row`, marks it read and adds its row to the selection.
  // Without such a row, the main page.
  void Show(int row);
  // Selects nothing else.
  void ShowOnly(int row);
  void ShowCurrent();
  // Shows the next unread post behind the current row, or the one before it; with none in the list
  // the frame goes on with another.
  void GoToUnread(bool forward);

  void Run(int command);
  std::optional<Menu> TheMenu() const;

 private:
  bool AreStored() const;
  void MarkShown(int row, const PostRow& post);
  void MarkSelected(int status);
  void ReadAgain();
  void Delete(const std::vector<int>& rows, const char* question);
  std::vector<int> AllRows() const;
  void Scrap();
  // How many of the rows, from the first on, were saved.
  std::size_t Save(const std::vector<int>& rows, int cabinetId);

  Frame& frame_;
  PostListModel& model_;
  CVxListCtrl& list_;
};

}  // namespace feedloom
