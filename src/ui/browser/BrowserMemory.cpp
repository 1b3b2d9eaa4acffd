// The functions of CRSS_RightBottomContainer that say what it shows, and show it again.
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomContainer.h"

namespace feedloom {

PageMemory CRSS_RightBottomContainer::Memory() const {
  return {.zoomSteps = view_->ZoomSteps(), .post = shownPost_ ? shownPost_->post.id : 0};
}

void CRSS_RightBottomContainer::Recall(const PageMemory& memory) { view_->Zoom(memory.zoomSteps); }

// Of a page that was written earlier and come back to, only the latest post is known.
PageContent CRSS_RightBottomContainer::Content() const {
  PageContent content{.scrolled = view_->Scrolled()};
  const bool isPost = shownPost_ && (view_->IsWritten() || IsOnDisplay(*shownPost_));
  if (isPost) content.post = shownPost_->post;
  if (!isPost) content.address = view_->Address();
  return content;
}

void CRSS_RightBottomContainer::Show(const PageContent& content) {
  content.post ? ShowPost(*content.post) : view_->Navigate(content.address);
  view_->ScrollWhenShown(content.scrolled);
}

}  // namespace feedloom
