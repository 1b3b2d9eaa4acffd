#include "shell/FrameDrops.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

#include "shell/DroppedContent.h"
#include "skin/Labels.h"
#include "skin/TextPlaceholders.h"
#include "ui/Desk.h"
#include "ui/Subscribing.h"

namespace feedloom {
namespace {

using Kind = DroppedContent::Kind;

// A move is never accepted: it would have the other program delete what it gives.
bool Accept(QDropEvent& event) {
  const Qt::DropActions offered = event.possibleActions() & (Qt::CopyAction | Qt::LinkAction);
  event.setAccepted(offered && MayBeDropped(*event.mimeData()) &&
                    QApplication::activeModalWidget() == nullptr);
  if (!event.isAccepted()) return false;
  event.setDropAction(offered & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction);
  return true;
}

const Label& FaultOf(Kind kind) {
  if (kind == Kind::kSeveral) return kLabelDropSeveral;
  return kind == Kind::kNoFile ? kLabelDropNoFile : kLabelDropNoAddress;
}

}  // namespace

FrameDrops::FrameDrops(QWidget& frame, Desk& desk, Subscribing& subscribing)
    : frame_(frame), desk_(desk), subscribing_(subscribing) {
  frame.setAcceptDrops(true);
}

bool FrameDrops::Handle(QEvent& event) {
  switch (event.type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
      Accept(static_cast<QDropEvent&>(event));
      return true;
    case QEvent::Drop:
      if (auto& drop = static_cast<QDropEvent&>(event); Accept(drop)) {
        TakeLater(ReadDrop(*drop.mimeData()), false);
      }
      return true;
    case QEvent::DragLeave:
      return true;
    default:
      return false;
  }
}

bool FrameDrops::TakeHandedOver(const std::string& content) {
  const DroppedContent read = ReadHandedOver(content);
  if (read.kind != Kind::kFile && read.kind != Kind::kAddress) return false;
  TakeLater(read, true);
  return true;
}

// The other program, or the host, waits for the end of the event, and a dialog may open.
void FrameDrops::TakeLater(const DroppedContent& content, bool asksFirst) {
  QMetaObject::invokeMethod(
      &frame_, [this, content, asksFirst] { Take(content, asksFirst); }, Qt::QueuedConnection);
}

void FrameDrops::Take(const DroppedContent& content, bool asksFirst) {
  if (content.kind == Kind::kFile) {
    return subscribing_.ImportOpml({.place = content.text, .asksFirst = asksFirst});
  }
  if (content.kind == Kind::kAddress) return subscribing_.AddChannel(content.text);
  const CodePage codePage = desk_.GetStore().TextCodePage();
  desk_.ReportMessage(
      WithTitle(GetLabel(desk_.GetSkin(), FaultOf(content.kind)), codePage.FromUtf8(content.text)));
}

}  // namespace feedloom
