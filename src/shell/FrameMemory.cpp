#include "shell/FrameMemory.h"

#include <tuple>
#include <utility>

#include "shell/PaneSizes.h"
#include "shell/ViewStore.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/tree/CRSS_LeftContainer.h"

namespace feedloom {

FrameMemory::FrameMemory(const FramePanes& panes, Desk& desk, Reading& reading,
                         const Registry& registry, std::optional<KeptView>& kept)
    : panes_(panes),
      desk_(desk),
      reading_(reading),
      registry_(registry),
      kept_(std::exchange(kept, std::nullopt)),
      stored_(LoadView(registry)) {
  const ViewMemory& view = kept_ ? kept_->view : stored_;
  panes_.sizes.Recall(view.panes);
  panes_.list.Recall(view.list);
  panes_.page.Recall(view.page);
}

void FrameMemory::TakeUp() {
  isTakenUp_ = true;
  panes_.left.Close((kept_ ? kept_->view : stored_).tree.closed);
  if (kept_) {
    ShowKept(*std::exchange(kept_, std::nullopt));
  } else if (desk_.GetSkin().Config().StartsWithLast()) {
    TakeUpLast();
  }
}

void FrameMemory::ShowKept(KeptView kept) {
  const TreeMemory& tree = kept.view.tree;
  const bool isSelected = tree.selected && panes_.left.Select(*tree.selected);
  if (kept.found) {
    desk_.State().SetListed(kept.listMode, kept.found->areSearchResults);
    panes_.list.Fill(std::move(*kept.found));
  } else if (isSelected) {
    panes_.left.ReloadSelection();
  }
  panes_.list.RecallPlace(kept.view.list);
  kept.page.IsMainPage() ? reading_.ShowMainPage() : panes_.page.Show(kept.page);
}

void FrameMemory::TakeUpLast() {
  const auto& selected = stored_.tree.selected;
  const bool isThere = selected && panes_.left.Select(*selected);
  if (!isThere && !panes_.left.SelectUnreadFolder()) return;
  panes_.left.ReloadSelection();
  if (!isThere) return;
  panes_.list.RecallPlace(stored_.list);
  const auto post = panes_.list.Find(stored_.page.post);
  post ? reading_.ShowPost(*post) : reading_.ShowMainPage();
}

ViewMemory FrameMemory::Look() const {
  return {.panes = panes_.sizes.Memory(),
          .tree = panes_.left.Memory(),
          .list = panes_.list.Memory(),
          .page = panes_.page.Memory(),
          .isUnreadOnly = desk_.State().isUnreadOnly};
}

std::optional<KeptView> FrameMemory::Leave() {
  if (!isTakenUp_) return std::nullopt;
  const SharedState& state = desk_.State();
  KeptView kept{.view = Look(), .listMode = state.listMode, .page = panes_.page.Content()};
  ViewMemory stored = kept.view;
  if (!state.listShowsSelection) {  // posts of a search or of another day are not listed again
    stored.list = {.columnWidths = stored.list.columnWidths, .scope = stored.list.scope};
    stored.page.post = 0;
    kept.found = panes_.list.Take();
  }
  // A window that cannot be remembered opens as it did before: nobody is there to be told.
  if (stored != stored_) std::ignore = SaveView(registry_, stored);
  return kept;
}

}  // namespace feedloom
